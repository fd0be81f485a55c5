#pragma once

#include "core/library/FileSystem.h"

#include <map>
#include <string>

namespace brinmoor::tests {

/// The real file system, but for calls that were told to fail.
class FaultyFileSystem : public FileSystem {
public:
    enum class Call {
        open,
        openNameless,
        close,
        status,
        read,
        write,
        flush,
        flushFolder,
        link,
        rename,
        makeFolder,
    };

    /// The `nth` call of this kind, counted from 1, and all later ones fail with this errno.
    void fail(Call call, int error, int nth = 1) { faults_[call] = {error, nth, lasting}; }
    /// Only the `nth` call fails.
    void failOnce(Call call, int error, int nth = 1) { faults_[call] = {error, nth, 1}; }
    /// No write takes more than this.
    void writeAtMost(std::size_t size) { mostAtOnce_ = size; }
    [[nodiscard]] int calls(Call call) { return counts_[call]; }

    int open(const std::string& path, int flags, mode_t mode) override;
    int close(int file) override;
    int status(int file, struct stat& result) override;
    ssize_t read(int file, void* bytes, std::size_t size) override;
    ssize_t write(int file, const void* bytes, std::size_t size) override;
    int flush(int file) override;
    int link(int file, const std::string& path) override;
    int rename(const std::string& from, const std::string& to) override;
    int makeFolder(const std::string& path, mode_t mode) override;

private:
    static constexpr int lasting = 1'000'000;
    struct Fault {
        int error = 0;
        int nth = 0;
        int times = 0;
    };

    /// Counts the call; sets errno if it has to fail.
    [[nodiscard]] bool fails(Call call);

    std::map<Call, Fault> faults_;
    std::map<Call, int> counts_;
    std::size_t mostAtOnce_ = ~std::size_t{0};
};

} // namespace brinmoor::tests
