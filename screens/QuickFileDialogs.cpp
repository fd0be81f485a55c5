#include "screens/QuickFileDialogs.h"

#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QQmlComponent>
#include <QQmlEngine>
#include <QQuickWindow>
#include <QStandardPaths>

#include <algorithm>
#include <utility>

namespace brinmoor {
namespace {

enum FileMode { openFile = 0, saveFile = 2 }; // as QtQuick.Dialogs numbers them

const auto component = QStringLiteral("qrc:/qt-project.org/imports/Brinmoor/BackupDialog.qml");

QUrl documents() {
    return QUrl::fromLocalFile(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
}

bool holdsDrawnDialog(const QWindow* window) {
    return std::ranges::any_of(window->children(), [](const QObject* part) {
        return part->inherits("QQuickFileDialogImpl");
    });
}

/// Whether it is Qt that draws the dialogs. The desktops' own ask by themselves before a file is
/// replaced.
bool areDrawn() {
    return std::ranges::any_of(QGuiApplication::allWindows(), holdsDrawnDialog);
}

} // namespace

QuickFileDialogs::QuickFileDialogs(QQmlEngine& engine) : engine_(engine) {}

QuickFileDialogs::~QuickFileDialogs() = default;

void QuickFileDialogs::chooseToRead(Chosen chosen) {
    show({{QStringLiteral("fileMode"), int(openFile)},
          {QStringLiteral("currentFolder"), documents()}},
         std::move(chosen));
}

void QuickFileDialogs::chooseToWrite(const std::string& suggestedName, Chosen chosen) {
    const auto suggested =
        QDir(documents().toLocalFile()).filePath(QString::fromStdString(suggestedName));
    show({{QStringLiteral("fileMode"), int(saveFile)},
          {QStringLiteral("currentFolder"), documents()},
          {QStringLiteral("selectedFile"), QUrl::fromLocalFile(suggested)}},
         std::move(chosen));
}

void QuickFileDialogs::show(const QVariantMap& properties, Chosen chosen) {
    if (dialog_) {
        QMetaObject::invokeMethod(dialog_.get(), "ask");
        chosen(std::nullopt);
        return;
    }
    QQmlComponent made(&engine_, QUrl(component));
    dialog_.reset(made.createWithInitialProperties(properties));
    if (!dialog_) {
        qWarning("No file dialog: %ls", qUtf16Printable(made.errorString()));
        chosen(std::nullopt);
        return;
    }
    chosen_ = std::move(chosen);
    if (auto* owner = qobject_cast<QQuickWindow*>(QGuiApplication::focusWindow()))
        dialog_->setProperty("owner", QVariant::fromValue(owner));
    // Signals of a QML type have no address.
    connect(dialog_.get(), SIGNAL(chosen(QUrl)), this, SLOT(look(QUrl)));
    connect(dialog_.get(), SIGNAL(answered(QUrl)), this, SLOT(accept(QUrl)));
    connect(dialog_.get(), SIGNAL(cancelled()), this, SLOT(cancel()));
    QMetaObject::invokeMethod(dialog_.get(), "ask");
}

bool QuickFileDialogs::mustAskToReplace(const QUrl& file) const {
    return dialog_->property("fileMode").toInt() == saveFile && areDrawn() &&
           QFileInfo::exists(file.toLocalFile());
}

void QuickFileDialogs::look(const QUrl& file) {
    if (mustAskToReplace(file))
        QMetaObject::invokeMethod(dialog_.get(), "askToReplace", Q_ARG(QString, file.fileName()));
    else
        accept(file);
}

void QuickFileDialogs::accept(const QUrl& file) {
    // What isn't on this computer has no path.
    end(file.isLocalFile() ? std::optional(file.toLocalFile().toStdString()) : std::nullopt);
}

void QuickFileDialogs::cancel() {
    end(std::nullopt);
}

void QuickFileDialogs::end(std::optional<std::string> path) {
    dialog_.reset();
    if (const auto chosen = std::exchange(chosen_, nullptr))
        chosen(std::move(path));
}

} // namespace brinmoor
