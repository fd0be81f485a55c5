#include "screens/EmailShareForm.h"

#include "app/AppModel.h"
#include "core/links/EmailShare.h"
#include "core/text/Wording.h"

#include <utility>

namespace brinmoor {

EmailShareForm::EmailShareForm(AppModel& model, QObject* parent) : QObject(parent), model_(model) {
    connect(&model, &AppModel::sheetsChanged, this, [this] { follow(); });
    follow();
}

void EmailShareForm::follow() {
    const auto& link = model_.sharingLink();
    if (link && !(isShown_ && link->id == link_.id))
        begin(*link);
    if (std::exchange(isShown_, link.has_value()) != link.has_value())
        Q_EMIT isShownChanged();
}

void EmailShareForm::begin(const SavedLink& link) {
    link_ = link;
    setSubject(QString::fromStdString(EmailShare::subject(link.title)));
    setNote(QString::fromStdString(link.note));
    setIncludeNote(false);
    setError({});
}

void EmailShareForm::setSubject(const QString& subject) {
    if (std::exchange(subject_, subject) != subject)
        Q_EMIT subjectChanged();
}

void EmailShareForm::setNote(const QString& note) {
    if (std::exchange(note_, note) != note)
        Q_EMIT noteChanged();
}

void EmailShareForm::setIncludeNote(bool include) {
    if (std::exchange(includeNote_, include) != include)
        Q_EMIT includeNoteChanged();
}

void EmailShareForm::setError(const QString& error) {
    if (std::exchange(error_, error) != error)
        Q_EMIT errorChanged();
}

std::string EmailShareForm::body() const {
    return EmailShare::body(link_, note_.toStdString(), includeNote_);
}

void EmailShareForm::copyText() {
    model_.copyText(body());
}

void EmailShareForm::openMail() {
    if (model_.composeMail(EmailShare::subject(subject_.toStdString()), body()))
        model_.endSharing();
    else
        setError(QString::fromStdString(
            text::worded("Mail isn’t available. Set up an email app, or copy this draft.")));
}

void EmailShareForm::cancel() {
    model_.endSharing();
}

} // namespace brinmoor
