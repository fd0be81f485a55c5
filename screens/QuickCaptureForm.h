#pragma once

#include "screens/LinkForm.h"

#include <functional>

namespace brinmoor {

/// What the form asks of the application.
struct QuickCaptureActions {
    /// True when the link was saved; the application then closes the panel.
    std::function<QCoro::Task<bool>(SavedLink link)> save;
    std::function<void()> cancel;
};

/// A captured link that waits for its note.
class QuickCaptureForm final : public brinmoor::LinkForm {
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the capture editor")

public:
    /// `knownTags`: the tags of the whole library, in the order in which they are offered.
    QuickCaptureForm(SavedLink link, std::vector<std::string> knownTags,
                     QuickCaptureActions actions, QObject* parent = nullptr);

    void cancel() override;

protected:
    QCoro::Task<bool> store(SavedLink link) override;

private:
    QuickCaptureActions actions_;
};

} // namespace brinmoor
