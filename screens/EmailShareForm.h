#pragma once

#include <QObject>
#include <QQmlEngine>
#include <QString>

// Last, since moc stumbles over <compare> as the first header of the standard library.
#include "core/library/SavedLink.h"

namespace brinmoor {

class AppModel;

/// The e-mail that passes a link on. Its note is a copy that never reaches the library.
class EmailShareForm final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    Q_PROPERTY(bool isShown READ isShown NOTIFY isShownChanged FINAL)
    Q_PROPERTY(QString subject READ subject WRITE setSubject NOTIFY subjectChanged FINAL)
    Q_PROPERTY(QString note READ note WRITE setNote NOTIFY noteChanged FINAL)
    Q_PROPERTY(
        bool includeNote READ includeNote WRITE setIncludeNote NOTIFY includeNoteChanged FINAL)
    Q_PROPERTY(QString error READ error NOTIFY errorChanged FINAL)

public:
    /// The model outlives it.
    explicit EmailShareForm(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool isShown() const noexcept { return isShown_; }
    [[nodiscard]] const QString& subject() const noexcept { return subject_; }
    void setSubject(const QString& subject);
    [[nodiscard]] const QString& note() const noexcept { return note_; }
    void setNote(const QString& note);
    [[nodiscard]] bool includeNote() const noexcept { return includeNote_; }
    void setIncludeNote(bool include);
    /// Empty when there is none.
    [[nodiscard]] const QString& error() const noexcept { return error_; }

    Q_INVOKABLE void copyText();
    /// Hands the e-mail to the mail program and closes; stays with an error when there is none.
    Q_INVOKABLE void openMail();
    Q_INVOKABLE void cancel();

Q_SIGNALS:
    void isShownChanged();
    void subjectChanged();
    void noteChanged();
    void includeNoteChanged();
    void errorChanged();

private:
    void follow();
    void begin(const SavedLink& link);
    void setError(const QString& error);
    [[nodiscard]] std::string body() const;

    AppModel& model_;
    SavedLink link_;
    QString subject_;
    QString note_;
    QString error_;
    bool includeNote_ = false;
    bool isShown_ = false;
};

} // namespace brinmoor
