#include "core/workspace/TableMemory.h"

#include <algorithm>
#include <mutex>
#include <new>
#include <unordered_map>
#include <vector>

namespace vastrel {

namespace {

constexpr std::align_val_t Alignment{64};
constexpr std::size_t LargeBlock = std::size_t{1} << 20; // smaller ones come from the heap without a fault

struct Block {
    void* Memory;
    std::size_t Bytes;
};

void* FromSystem(std::size_t bytes) {
    return ::operator new(bytes, Alignment);
}
void ToSystem(void* memory) {
    ::operator delete(memory, Alignment);
}

/// The large blocks that were taken within scopes.
class LargeBlocks {
public:
    void Enter() {
        const std::lock_guard lock(mutex_);
        ++scopes_;
    }

    void Leave() {
        const std::lock_guard lock(mutex_);
        if (--scopes_ == 0) KeepAtMost(0);
    }

    void* Take(std::size_t bytes) {
        const std::lock_guard lock(mutex_);
        if (scopes_ == 0) return FromSystem(bytes);
        const auto fits = [bytes](const Block& block) {
            return bytes <= block.Bytes && block.Bytes - bytes <= bytes / 8;
        };
        const auto kept = std::find_if(kept_.begin(), kept_.end(), fits);
        if (kept == kept_.end()) return TakeNew(bytes);
        const Block block = *kept;
        kept_.erase(kept);
        keptBytes_ -= block.Bytes;
        return Use(block);
    }

    void Give(void* memory) {
        const std::lock_guard lock(mutex_);
        const auto used = used_.find(memory);
        if (used == used_.end()) return ToSystem(memory); // taken before the scopes
        const Block block{memory, used->second};
        used_.erase(used);
        usedBytes_ -= block.Bytes;
        if (scopes_ == 0) return ToSystem(memory);
        kept_.push_back(block);
        keptBytes_ += block.Bytes;
    }

private:
    void* TakeNew(std::size_t bytes) {
        const std::size_t use = usedBytes_ + bytes;
        mostBytes_ = std::max(mostBytes_, use);
        KeepAtMost(mostBytes_ - use);
        return Use({FromSystem(bytes), bytes});
    }

    void* Use(const Block& block) {
        used_.emplace(block.Memory, block.Bytes);
        usedBytes_ += block.Bytes;
        return block.Memory;
    }

    void KeepAtMost(std::size_t bytes) {
        for (; keptBytes_ > bytes; kept_.pop_back()) {
            ToSystem(kept_.back().Memory);
            keptBytes_ -= kept_.back().Bytes;
        }
        if (scopes_ == 0) mostBytes_ = usedBytes_;
    }

    std::mutex mutex_;
    int scopes_ = 0;
    std::unordered_map<void*, std::size_t> used_;
    std::vector<Block> kept_;
    std::size_t usedBytes_ = 0, keptBytes_ = 0, mostBytes_ = 0;
};

/// Lives on to the end of the process: the store gives its tables back after everything else.
LargeBlocks& Large() {
    static auto& blocks = *new LargeBlocks;
    return blocks;
}

} // namespace

void* TakeTableMemory(std::size_t bytes) {
    return bytes < LargeBlock ? FromSystem(bytes) : Large().Take(bytes);
}

void GiveTableMemory(void* memory, std::size_t bytes) {
    if (bytes < LargeBlock)
        ToSystem(memory);
    else
        Large().Give(memory);
}

TableMemoryScope::TableMemoryScope() {
    Large().Enter();
}

TableMemoryScope::~TableMemoryScope() {
    Large().Leave();
}

} // namespace vastrel
