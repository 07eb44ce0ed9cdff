#include "support/OrdinaryUser.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <sys/wait.h>
#include <unistd.h>

namespace vastrel {

namespace {

constexpr uid_t Nobody = 65534;
constexpr int CannotChange = 255;

/// 0 where the check is true.
int StatusAsNobody(const std::function<bool()>& check) {
    const pid_t child = fork();
    if (child == 0) {
        if (setgid(Nobody) != 0 || setuid(Nobody) != 0) _exit(CannotChange);
        _exit(check() ? 0 : 1);
    }
    int status = 0;
    EXPECT_EQ(waitpid(child, &status, 0), child);
    return WIFEXITED(status) ? WEXITSTATUS(status) : -1;
}

} // namespace

void ExpectOfAnOrdinaryUser(const TemporaryFolder& folder, const std::function<bool()>& check,
                            unsigned mode) {
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(mode));
    const int status = geteuid() == 0 ? StatusAsNobody(check) : check() ? 0 : 1;
    std::filesystem::permissions(folder.Path(), std::filesystem::perms(0755));
    if (status == CannotChange) GTEST_SKIP() << "cannot become an ordinary user";
    EXPECT_EQ(status, 0);
}

} // namespace vastrel
