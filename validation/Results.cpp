#include "validation/Results.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <stdexcept>

namespace vastrel::validation {

namespace {

constexpr const char* CellsFile = "cells.csv";

Results::Row Fields(const std::string& line) {
    Results::Row fields;
    std::istringstream stream(line);
    for (std::string field; std::getline(stream, field, ',');)
        fields.push_back(field);
    return fields;
}

} // namespace

Results::Results(const std::string& folder) : folder_(folder) {
    std::filesystem::create_directories(folder);
    for (const auto& entry : std::filesystem::directory_iterator(folder))
        if (entry.path().extension() == ".csv") Read(entry.path().filename().string());
}

void Results::Read(const std::string& name) {
    std::ifstream stream(folder_ + "/" + name);
    File& file = files_[name];
    std::string line;
    std::getline(stream, line);
    file.Columns = line.substr(line.find(',') + 1);
    while (std::getline(stream, line)) {
        Row row = Fields(line);
        const std::string cell = row.at(0);
        row.erase(row.begin());
        file.Rows[cell].push_back(row);
    }
}

long Results::ReplicationsOf(const std::string& cell) const {
    const auto file = files_.find(CellsFile);
    if (file == files_.end()) return 0;
    const auto rows = file->second.Rows.find(cell);
    return rows == file->second.Rows.end() ? 0 : std::stol(rows->second.at(0).at(0));
}

void Results::Add(const std::string& file, const std::string& columns, Row row) {
    files_[file].Columns = columns;
    files_[file].Fresh.push_back(std::move(row));
}

void Results::Finish(const std::string& cell, long replications) {
    files_[CellsFile].Columns = "replications";
    files_[CellsFile].Fresh = {{std::to_string(replications)}};
    for (auto& [name, file] : files_) {
        if (file.Fresh.empty()) continue;
        file.Rows[cell] = std::move(file.Fresh);
        file.Fresh.clear();
        if (name != CellsFile) Write(name);
    }
    Write(CellsFile);
}

void Results::Write(const std::string& name) const {
    const File& file = files_.at(name);
    const std::string path = folder_ + "/" + name;
    {
        std::ofstream stream(path + ".part");
        stream << "cell," << file.Columns << "\n";
        for (const auto& [cell, rows] : file.Rows)
            for (const auto& row : rows) {
                stream << cell;
                for (const auto& field : row)
                    stream << "," << field;
                stream << "\n";
            }
        if (!stream.flush()) throw std::runtime_error(path + " cannot be written.");
    }
    std::filesystem::rename(path + ".part", path);
}

std::string Shown(double value, int digits) {
    char text[40];
    std::snprintf(text, sizeof text, "%.*g", digits, value);
    return text;
}

} // namespace vastrel::validation
