#pragma once

#include "screens/LinkForm.h"

namespace brinmoor {

class AppModel;

/// The link that is open for editing, and what else can be done with it.
class DetailForm final : public brinmoor::LinkForm {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    Q_PROPERTY(bool isShown READ isShown NOTIFY isShownChanged FINAL)
    Q_PROPERTY(QString savedFrom READ savedFrom NOTIFY urlChanged FINAL)
    Q_PROPERTY(bool isArchived READ isArchived NOTIFY urlChanged FINAL)
    Q_PROPERTY(bool confirmingDelete READ confirmingDelete NOTIFY confirmingDeleteChanged FINAL)

public:
    /// The model outlives it.
    explicit DetailForm(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool isShown() const noexcept { return isShown_; }
    /// "Saved from Chromium".
    [[nodiscard]] QString savedFrom() const;
    [[nodiscard]] bool isArchived() const noexcept { return link().isArchived; }
    /// The user is asked whether the link is to be deleted.
    [[nodiscard]] bool confirmingDelete() const noexcept { return confirmingDelete_; }

    Q_INVOKABLE void open();
    Q_INVOKABLE void copyLink();
    /// Archives the link, or restores an archived one; what was edited is dropped.
    Q_INVOKABLE void toggleArchived();
    Q_INVOKABLE void askDelete();
    Q_INVOKABLE void cancelDelete();
    Q_INVOKABLE void confirmDelete();
    void cancel() override;

Q_SIGNALS:
    void isShownChanged();
    void confirmingDeleteChanged();

protected:
    QCoro::Task<bool> store(SavedLink link) override;
    void stored() override;

private:
    void follow();
    void setShown(bool shown);
    void setConfirmingDelete(bool confirming);

    AppModel& model_;
    bool isShown_ = false;
    bool confirmingDelete_ = false;
};

} // namespace brinmoor
