#pragma once

#include <QCoroTask>
#include <QObject>
#include <QQmlEngine>
#include <QString>
#include <QStringList>

#include <string>
#include <vector>

// Last, since moc stumbles over <compare> as the first header of the standard library.
#include "core/library/SavedLink.h"

namespace brinmoor {

/// What the forms share in which the user writes about a link: a working copy that nobody else
/// sees until it is saved.
class LinkForm : public QObject {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the application")
    Q_PROPERTY(QString url READ url WRITE setUrl NOTIFY urlChanged FINAL)
    Q_PROPERTY(QString title READ title WRITE setTitle NOTIFY titleChanged FINAL)
    Q_PROPERTY(QString note READ note WRITE setNote NOTIFY noteChanged FINAL)
    Q_PROPERTY(QString domain READ domain NOTIFY urlChanged FINAL)
    /// Where the page said that its icon is.
    Q_PROPERTY(QString iconHint READ iconHint NOTIFY urlChanged FINAL)
    Q_PROPERTY(QStringList tags READ tags NOTIFY tagsChanged FINAL)
    Q_PROPERTY(QString tagInput READ tagInput WRITE setTagInput NOTIFY tagInputChanged FINAL)
    Q_PROPERTY(QStringList suggestions READ suggestions NOTIFY suggestionsChanged FINAL)
    Q_PROPERTY(bool completes READ completes NOTIFY suggestionsChanged FINAL)
    Q_PROPERTY(bool saving READ isSaving NOTIFY savingChanged FINAL)

public:
    [[nodiscard]] QString url() const { return QString::fromStdString(link_.url); }
    void setUrl(const QString& url);
    [[nodiscard]] QString title() const { return QString::fromStdString(link_.title); }
    void setTitle(const QString& title);
    [[nodiscard]] QString note() const { return QString::fromStdString(link_.note); }
    void setNote(const QString& note);
    [[nodiscard]] QString domain() const { return QString::fromStdString(link_.domain()); }
    [[nodiscard]] QString iconHint() const {
        return QString::fromStdString(link_.iconURL.value_or(""));
    }
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
    Q_INVOKABLE virtual void cancel() = 0;

Q_SIGNALS:
    void urlChanged();
    void titleChanged();
    void noteChanged();
    void tagsChanged();
    void tagInputChanged();
    void suggestionsChanged();
    void savingChanged();

protected:
    explicit LinkForm(QObject* parent) : QObject(parent) {}

    /// Begins with this link. `knownTags`: the tags of the whole library, in the order in which
    /// they are offered.
    void begin(SavedLink link, std::vector<std::string> knownTags);
    void setKnownTags(std::vector<std::string> knownTags);
    /// True when the link was saved.
    virtual QCoro::Task<bool> store(SavedLink link) = 0;
    /// The link that the form was begun with is saved.
    virtual void stored() {}

private:
    void setTags(std::vector<std::string> tags);
    void appendTags(std::vector<std::string> tags);
    void setSaving(bool saving);
    QCoro::Task<> runSave();

    SavedLink link_;
    std::vector<std::string> knownTags_;
    std::string tagInput_;
    bool saving_ = false;
    int beginnings_ = 0;
};

} // namespace brinmoor
