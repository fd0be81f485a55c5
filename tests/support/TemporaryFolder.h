#pragma once

#include <QTemporaryDir>

#include <fstream>
#include <iterator>
#include <string>

namespace brinmoor::testing {

/// A folder that goes with the object.
class TemporaryFolder {
public:
    [[nodiscard]] std::string path(const std::string& name) const {
        return folder_.path().toStdString() + "/" + name;
    }

private:
    QTemporaryDir folder_;
};

inline std::string bytesOf(const std::string& path) {
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
}

inline void writeBytes(const std::string& path, const std::string& bytes) {
    std::ofstream(path, std::ios::binary | std::ios::trunc) << bytes;
}

} // namespace brinmoor::testing
