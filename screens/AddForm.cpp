#include "screens/AddForm.h"

#include "app/AppModel.h"
#include "screens/LibraryTags.h"

namespace brinmoor {

AddForm::AddForm(AppModel& model, QObject* parent) : LinkForm(parent), model_(model) {
    connect(&model, &AppModel::sheetsChanged, this, [this] { follow(); });
    connect(&model, &AppModel::libraryChanged, this, [this] {
        if (isShown_)
            setKnownTags(libraryTags(model_.library()));
    });
    follow();
}

void AddForm::follow() {
    if (model_.isShowingAdd() == isShown_)
        return;
    isShown_ = !isShown_;
    if (isShown_)
        begin({}, libraryTags(model_.library()));
    Q_EMIT isShownChanged();
}

void AddForm::pasteURL() {
    const auto copied = model_.copiedText();
    const QString text = QString::fromStdString(copied.value_or("")).trimmed();
    if (!text.isEmpty())
        setUrl(text);
}

QCoro::Task<bool> AddForm::store(SavedLink link) {
    return model_.add(std::move(link.url), std::move(link.title), "Inbox", std::move(link.note),
                      std::move(link.tags));
}

void AddForm::stored() {
    model_.setShowingAdd(false);
}

void AddForm::cancel() {
    model_.setShowingAdd(false);
}

} // namespace brinmoor
