#pragma once

#include <unistd.h>
#include <utility>

namespace brinmoor {

/// An open file that is closed with its holder.
class FileDescriptor {
public:
    FileDescriptor() = default;
    explicit FileDescriptor(int opened) : opened_(opened) {}
    FileDescriptor(FileDescriptor&& other) noexcept : opened_(std::exchange(other.opened_, -1)) {}
    FileDescriptor& operator=(FileDescriptor&& other) noexcept {
        std::swap(opened_, other.opened_);
        return *this;
    }
    ~FileDescriptor() {
        if (opened_ >= 0)
            ::close(opened_);
    }

    [[nodiscard]] int get() const { return opened_; }
    explicit operator bool() const { return opened_ >= 0; }

private:
    int opened_ = -1;
};

} // namespace brinmoor
