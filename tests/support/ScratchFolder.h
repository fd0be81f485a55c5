#pragma once

#include <filesystem>
#include <string>

namespace brinmoor::testing {

/// An empty folder that goes with the object, for programs without Qt.
class ScratchFolder {
public:
    ScratchFolder() {
        std::string name = std::filesystem::temp_directory_path() / "brinmoor-test.XXXXXX";
        path_ = ::mkdtemp(name.data());
    }
    ScratchFolder(const ScratchFolder&) = delete;
    ScratchFolder& operator=(const ScratchFolder&) = delete;
    ~ScratchFolder() {
        std::error_code ignored;
        std::filesystem::remove_all(path_, ignored);
    }

    [[nodiscard]] const std::string& path() const { return path_; }
    [[nodiscard]] std::string path(const std::string& name) const { return path_ + "/" + name; }

private:
    std::string path_;
};

} // namespace brinmoor::testing
