#pragma once

#include <QCoroTask>
#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QStringList>

#include <functional>
#include <string>
#include <vector>

// Last, since moc stumbles over <compare> as the first header of the standard library.
#include "core/library/SavedLink.h"

namespace brinmoor {

/// What the form asks of the application.
struct QuickCaptureActions {
    /// True when the link was saved; the application then closes the panel.
    std::function<QCoro::Task<bool>(SavedLink link)> save;
    std::function<void()> cancel;
};

/// A link being annotated: a working copy that nobody else sees until it is saved.
class QuickCaptureForm final : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the capture editor")
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged FINAL)
    Q_PROPERTY(QString note READ note WRITE setNote NOTIFY noteChanged FINAL)
    Q_PROPERTY(QString domain READ domain CONSTANT FINAL)
    Q_PROPERTY(QStringList tags READ tags NOTIFY tagsChanged FINAL)
    Q_PROPERTY(QString tagInput READ tagInput WRITE setTagInput NOTIFY tagInputChanged FINAL)
    Q_PROPERTY(QStringList suggestions READ suggestions NOTIFY suggestionsChanged FINAL)
    Q_PROPERTY(bool completes READ completes NOTIFY suggestionsChanged FINAL)
    Q_PROPERTY(bool saving READ isSaving NOTIFY savingChanged FINAL)

public:
    /// `knownTags`: the tags of the whole library, in the order in which they are offered.
    QuickCaptureForm(SavedLink link, std::vector<std::string> knownTags,
                     QuickCaptureActions actions, QObject* parent = nullptr);

    [[nodiscard]] QString title() const { return QString::fromStdString(link_.title); }
    void setTitle(const QString& title);
    [[nodiscard]] QString note() const { return QString::fromStdString(link_.note); }
    void setNote(const QString& note);
    [[nodiscard]] QString domain() const { return QString::fromStdString(link_.domain()); }
    [[nodiscard]] QStringList tags() const;
    [[nodiscard]] QString tagInput() const { return QString::fromStdString(tagInput_); }
    void setTagInput(const QString& input);
    /// At most six known tags that the input could mean.
    [[nodiscard]] QStringList suggestions() const;
    /// Whether Tab takes the first suggestion.
    [[nodiscard]] bool completes() const;
    [[nodiscard]] bool isSaving() const noexcept { return saving_; }
    [[nodiscard]] const SavedLink& link() const noexcept { return link_; }

    /// Makes tags of the input: its pieces between commas. An empty input changes nothing.
    Q_INVOKABLE void commitInput();
    Q_INVOKABLE void addSuggestion(const QString& tag);
    Q_INVOKABLE void removeTag(const QString& tag);
    /// Takes the first suggestion for the input; false, with nothing changed, without one.
    Q_INVOKABLE bool tab();
    /// Saves the link with what is still in the tag input. Does nothing while a save runs.
    Q_INVOKABLE void save();
    Q_INVOKABLE void cancel();

Q_SIGNALS:
    void titleChanged();
    void noteChanged();
    void tagsChanged();
    void tagInputChanged();
    void suggestionsChanged();
    void savingChanged();

private:
    void setTags(std::vector<std::string> tags);
    void appendTags(std::vector<std::string> tags);
    void setSaving(bool saving);
    QCoro::Task<> runSave();

    SavedLink link_;
    std::vector<std::string> knownTags_;
    QuickCaptureActions actions_;
    std::string tagInput_;
    bool saving_ = false;
};

} // namespace brinmoor
