#include "screens/LinkForm.h"

#include "core/tags/TagCompletion.h"

#include <QPointer>

#include <algorithm>
#include <iterator>
#include <utility>

namespace brinmoor {

namespace {

constexpr int suggestionLimit = 6;

QStringList texts(const std::vector<std::string>& tags) {
    QStringList result;
    for (const std::string& tag : tags)
        result.append(QString::fromStdString(tag));
    return result;
}

} // namespace

void LinkForm::begin(SavedLink link, std::vector<std::string> knownTags) {
    ++beginnings_;
    link_ = std::move(link);
    knownTags_ = std::move(knownTags);
    tagInput_.clear();
    setSaving(false);
    Q_EMIT urlChanged();
    Q_EMIT titleChanged();
    Q_EMIT noteChanged();
    Q_EMIT tagsChanged();
    Q_EMIT tagInputChanged();
    Q_EMIT suggestionsChanged();
}

void LinkForm::setKnownTags(std::vector<std::string> knownTags) {
    knownTags_ = std::move(knownTags);
    Q_EMIT suggestionsChanged();
}

void LinkForm::setUrl(const QString& url) {
    if (std::string text = url.toStdString(); text != link_.url) {
        link_.url = std::move(text);
        Q_EMIT urlChanged();
    }
}

void LinkForm::setTitle(const QString& title) {
    if (std::string text = title.toStdString(); text != link_.title) {
        link_.title = std::move(text);
        Q_EMIT titleChanged();
    }
}

void LinkForm::setNote(const QString& note) {
    if (std::string text = note.toStdString(); text != link_.note) {
        link_.note = std::move(text);
        Q_EMIT noteChanged();
    }
}

QStringList LinkForm::tags() const {
    return texts(link_.tags);
}

void LinkForm::setTagInput(const QString& input) {
    std::string text = input.toStdString();
    if (text == tagInput_)
        return;
    tagInput_ = std::move(text);
    Q_EMIT tagInputChanged();
    Q_EMIT suggestionsChanged();
}

QStringList LinkForm::suggestions() const {
    return texts(TagCompletion::matches(tagInput_, link_.tags, knownTags_, suggestionLimit));
}

bool LinkForm::completes() const {
    return TagCompletion::firstMatch(tagInput_, link_.tags, knownTags_).has_value();
}

void LinkForm::commitInput() {
    appendTags(SavedLink::parseTags(tagInput_));
}

void LinkForm::addSuggestion(const QString& tag) {
    appendTags({tag.toStdString()});
}

void LinkForm::appendTags(std::vector<std::string> tags) {
    std::vector<std::string> all = link_.tags;
    std::ranges::move(tags, std::back_inserter(all));
    setTags(SavedLink::normalizedTags(all));
    setTagInput({});
}

void LinkForm::removeTag(const QString& tag) {
    std::vector<std::string> left = link_.tags;
    std::erase(left, tag.toStdString());
    setTags(std::move(left));
}

void LinkForm::setTags(std::vector<std::string> tags) {
    if (tags == link_.tags)
        return;
    link_.tags = std::move(tags);
    Q_EMIT tagsChanged();
    Q_EMIT suggestionsChanged();
}

bool LinkForm::tab() {
    const auto match = TagCompletion::firstMatch(tagInput_, link_.tags, knownTags_);
    if (!match)
        return false;
    appendTags({*match});
    return true;
}

void LinkForm::save() {
    if (saving_)
        return;
    commitInput();
    setSaving(true);
    runSave();
}

QCoro::Task<> LinkForm::runSave() {
    // Saving may close what shows the form, and the form goes with it or begins with another link.
    const QPointer<LinkForm> form(this);
    const int beginning = beginnings_;
    auto task = store(link_);
    const bool done = co_await task;
    if (!form || form->beginnings_ != beginning)
        co_return;
    form->setSaving(false);
    if (done)
        form->stored();
}

void LinkForm::setSaving(bool saving) {
    if (std::exchange(saving_, saving) != saving)
        Q_EMIT savingChanged();
}

} // namespace brinmoor
