#pragma once

#include "platform/FileDialogs.h"

#include <QObject>
#include <QUrl>

#include <memory>

class QQmlEngine;

namespace brinmoor {

/// The desktop's own file dialogs where Qt finds them, else Qt's.
class QuickFileDialogs final : public QObject, public FileDialogs {
    Q_OBJECT

public:
    /// The engine outlives the dialogs.
    explicit QuickFileDialogs(QQmlEngine& engine);
    ~QuickFileDialogs() override;

    void chooseToRead(Chosen chosen) override;
    void chooseToWrite(const std::string& suggestedName, Chosen chosen) override;

    /// The open dialog; nullptr when there is none.
    [[nodiscard]] QObject* open() const noexcept { return dialog_.get(); }

private Q_SLOTS:
    void look(const QUrl& file);
    void accept(const QUrl& file);
    void cancel();

private:
    struct Later {
        void operator()(QObject* object) const { object->deleteLater(); }
    };

    void show(const QVariantMap& properties, Chosen chosen);
    [[nodiscard]] bool mustAskToReplace(const QUrl& file) const;
    void end(std::optional<std::string> path);

    QQmlEngine& engine_;
    std::unique_ptr<QObject, Later> dialog_;
    Chosen chosen_;
};

} // namespace brinmoor
