#include "main/Installation.h"

#include <QCoreApplication>
#include <QDir>
#include <QFileInfo>

namespace brinmoor {
namespace {

/// The first of the places, seen from the program's folder, where `name` exists.
QString found(const QStringList& places, const QString& name) {
    const QDir folder(QCoreApplication::applicationDirPath());
    for (const QString& place : places) {
        QString path = QDir::cleanPath(folder.filePath(place + u'/' + name));
        if (QFileInfo::exists(path))
            return path;
    }
    return QDir::cleanPath(folder.filePath(places.front() + u'/' + name));
}

} // namespace

Installation Installation::ofThisProgram() {
    const QStringList programs{QStringLiteral("."), QStringLiteral("../libexec/brinmoor")};
    const QStringList shared{QStringLiteral("../share/brinmoor"), QStringLiteral("..")};
    return {.automationTool = found(programs, QStringLiteral("brinmoor-automation")),
            .browserHost = found(programs, QStringLiteral("brinmoor-browser-host")),
            .iconDecoder = found(programs, QStringLiteral("brinmoor-icon-decoder")),
            .extensionFolder = found(shared, QStringLiteral("extension"))};
}

} // namespace brinmoor
