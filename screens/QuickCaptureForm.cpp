#include "screens/QuickCaptureForm.h"

#include <utility>

namespace brinmoor {

QuickCaptureForm::QuickCaptureForm(SavedLink link, std::vector<std::string> knownTags,
                                   QuickCaptureActions actions, QObject* parent)
    : LinkForm(parent), actions_(std::move(actions)) {
    begin(std::move(link), std::move(knownTags));
}

QCoro::Task<bool> QuickCaptureForm::store(SavedLink link) {
    return actions_.save(std::move(link));
}

void QuickCaptureForm::cancel() {
    // A copy, since cancelling takes the panel and this form away.
    const auto cancelled = actions_.cancel;
    cancelled();
}

} // namespace brinmoor
