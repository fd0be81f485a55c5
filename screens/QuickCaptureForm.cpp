#include "screens/QuickCaptureForm.h"

#include "core/tags/TagCompletion.h"

#include <QPointer>

#include <algorithm>
#include <iterator>

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

QuickCaptureForm::QuickCaptureForm(SavedLink link, std::vector<std::string> knownTags,
                                   QuickCaptureActions actions, QObject* parent)
    : QObject(parent), link_(std::move(link)), knownTags_(std::move(knownTags)),
      actions_(std::move(actions)) {}

void QuickCaptureForm::setTitle(const QString& title) {
    std::string text = title.toStdString();
    if (text == link_.title)
        return;
    link_.title = std::move(text);
    Q_EMIT titleChanged();
}

void QuickCaptureForm::setNote(const QString& note) {
    std::string text = note.toStdString();
    if (text == link_.note)
        return;
    link_.note = std::move(text);
    Q_EMIT noteChanged();
}

QStringList QuickCaptureForm::tags() const {
    return texts(link_.tags);
}

void QuickCaptureForm::setTagInput(const QString& input) {
    std::string text = input.toStdString();
    if (text == tagInput_)
        return;
    tagInput_ = std::move(text);
    Q_EMIT tagInputChanged();
    Q_EMIT suggestionsChanged();
}

QStringList QuickCaptureForm::suggestions() const {
    return texts(TagCompletion::matches(tagInput_, link_.tags, knownTags_, suggestionLimit));
}

bool QuickCaptureForm::completes() const {
    return TagCompletion::firstMatch(tagInput_, link_.tags, knownTags_).has_value();
}

void QuickCaptureForm::commitInput() {
    appendTags(SavedLink::parseTags(tagInput_));
}

void QuickCaptureForm::addSuggestion(const QString& tag) {
    appendTags({tag.toStdString()});
}

void QuickCaptureForm::appendTags(std::vector<std::string> tags) {
    std::vector<std::string> all = link_.tags;
    std::ranges::move(tags, std::back_inserter(all));
    setTags(SavedLink::normalizedTags(all));
    setTagInput({});
}

void QuickCaptureForm::removeTag(const QString& tag) {
    std::vector<std::string> left = link_.tags;
    std::erase(left, tag.toStdString());
    setTags(std::move(left));
}

void QuickCaptureForm::setTags(std::vector<std::string> tags) {
    if (tags == link_.tags)
        return;
    link_.tags = std::move(tags);
    Q_EMIT tagsChanged();
    Q_EMIT suggestionsChanged();
}

bool QuickCaptureForm::tab() {
    const auto match = TagCompletion::firstMatch(tagInput_, link_.tags, knownTags_);
    if (!match)
        return false;
    appendTags({*match});
    return true;
}

void QuickCaptureForm::save() {
    if (saving_)
        return;
    commitInput();
    setSaving(true);
    runSave();
}

QCoro::Task<> QuickCaptureForm::runSave() {
    // Saving may close the panel, and this form goes with it.
    const QPointer<QuickCaptureForm> form(this);
    auto saved = actions_.save(link_);
    co_await saved;
    if (form)
        form->setSaving(false);
}

void QuickCaptureForm::cancel() {
    // A copy, since cancelling takes the panel and this form away.
    const auto cancelled = actions_.cancel;
    cancelled();
}

void QuickCaptureForm::setSaving(bool saving) {
    saving_ = saving;
    Q_EMIT savingChanged();
}

} // namespace brinmoor
