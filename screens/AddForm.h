#pragma once

#include "screens/LinkForm.h"

namespace brinmoor {

class AppModel;

/// A link typed by hand. It begins empty each time its sheet opens.
class AddForm final : public brinmoor::LinkForm {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the library window")
    Q_PROPERTY(bool isShown READ isShown NOTIFY isShownChanged FINAL)

public:
    /// The model outlives it.
    explicit AddForm(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool isShown() const noexcept { return isShown_; }
    /// Takes the copied text as the address; nothing when no text was copied.
    Q_INVOKABLE void pasteURL();
    void cancel() override;

Q_SIGNALS:
    void isShownChanged();

protected:
    QCoro::Task<bool> store(SavedLink link) override;
    void stored() override;

private:
    void follow();

    AppModel& model_;
    bool isShown_ = false;
};

} // namespace brinmoor
