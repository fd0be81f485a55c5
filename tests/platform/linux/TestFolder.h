#pragma once

#include <QTemporaryDir>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace brinmoor::testing {

/// A folder that goes with the test.
class TestFolder {
public:
    [[nodiscard]] std::string path(const std::string& name = {}) const {
        const auto base = folder_.path().toStdString();
        return name.empty() ? base : base + "/" + name;
    }

private:
    QTemporaryDir folder_;
};

[[nodiscard]] inline std::string contentsOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void putFile(const std::string& path, const std::string& contents) {
    std::filesystem::create_directories(std::filesystem::path(path).parent_path());
    std::ofstream(path, std::ios::binary) << contents;
}

[[nodiscard]] inline std::size_t filesIn(const std::string& folder) {
    std::size_t count = 0;
    for ([[maybe_unused]] const auto& entry : std::filesystem::directory_iterator(folder))
        ++count;
    return count;
}

} // namespace brinmoor::testing
