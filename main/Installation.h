#pragma once

#include <QString>

namespace brinmoor {

/// Where the parts of this installation lie, seen from the running program: all in one folder in a
/// build tree, in libexec and share where it was installed.
struct Installation {
    QString automationTool;
    QString browserHost;
    QString iconDecoder;
    QString extensionFolder;

    [[nodiscard]] static Installation ofThisProgram();
};

} // namespace brinmoor
