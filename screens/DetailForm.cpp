#include "screens/DetailForm.h"

#include "app/AppModel.h"
#include "core/text/Wording.h"
#include "screens/LibraryTags.h"

#include <utility>

namespace brinmoor {

DetailForm::DetailForm(AppModel& model, QObject* parent) : LinkForm(parent), model_(model) {
    connect(&model, &AppModel::selectionChanged, this, [this] { follow(); });
    connect(&model, &AppModel::libraryChanged, this, [this] {
        if (isShown_ && model_.selected())
            setKnownTags(libraryTags(model_.library()));
        else
            follow();
    });
    follow();
}

void DetailForm::follow() {
    const SavedLink* selected = model_.selected();
    if (selected && !(isShown_ && selected->id == link().id)) {
        setConfirmingDelete(false);
        begin(*selected, libraryTags(model_.library()));
    }
    setShown(selected != nullptr);
}

void DetailForm::setShown(bool shown) {
    if (!shown)
        setConfirmingDelete(false);
    if (std::exchange(isShown_, shown) != shown)
        Q_EMIT isShownChanged();
}

QString DetailForm::savedFrom() const {
    return QString::fromStdString(text::worded("Saved from ") + link().browser);
}

void DetailForm::open() {
    model_.open(link());
}

void DetailForm::copyLink() {
    model_.copy(link());
}

void DetailForm::toggleArchived() {
    model_.setArchived(!isArchived(), {link().id});
}

void DetailForm::askDelete() {
    setConfirmingDelete(true);
}

void DetailForm::cancelDelete() {
    setConfirmingDelete(false);
}

void DetailForm::confirmDelete() {
    setConfirmingDelete(false);
    // A copy, since the deletion ends what is shown.
    const SavedLink deleted = link();
    model_.deleteLink(deleted);
}

void DetailForm::cancel() {
    model_.setSelectedID(std::nullopt);
}

QCoro::Task<bool> DetailForm::store(SavedLink link) {
    // The star isn't edited here: it stays as it is by now.
    if (const SavedLink* stored = model_.selected())
        link.isFavorite = stored->isFavorite;
    return model_.update(std::move(link));
}

void DetailForm::stored() {
    model_.setSelectedID(std::nullopt);
}

void DetailForm::setConfirmingDelete(bool confirming) {
    if (std::exchange(confirmingDelete_, confirming) != confirming)
        Q_EMIT confirmingDeleteChanged();
}

} // namespace brinmoor
