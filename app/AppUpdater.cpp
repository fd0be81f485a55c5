#include "app/AppUpdater.h"

#include "app/AppBuild.h"
#include "core/text/Wording.h"
#include "platform/Updater.h"

#include <QtGlobal>

namespace brinmoor {

using text::worded;

bool AppBuild::isOfficial() const {
    return identifier == "app.brinmoor.mac" && updatesEnabled.value_or(false);
}

std::string AppBuild::versionText() const {
    const std::string missing = worded("development");
    return version.value_or(missing) + " (" + number.value_or(missing) + ")";
}

AppUpdater::AppUpdater(const AppBuild& build, Updater* updater) {
    if (!build.isOfficial() || updater == nullptr) {
        unavailableReason_ = worded("Updates are available in the installed release of Brinmoor.");
        return;
    }
    updater_ = updater;
    changes_ = updater_->onChange([this] { mirror(); });
    mirror();
}

void AppUpdater::mirror() {
    canCheck_ = updater_->canCheckForUpdates();
    automatic_ = updater_->automaticallyChecksForUpdates();
    Q_EMIT changed();
}

void AppUpdater::start() {
    if (updater_ == nullptr)
        return;
    if (const auto started = updater_->start(); !started) {
        qWarning("Brinmoor updater failed to start: %s", started.error().c_str());
        unavailableReason_ = worded("Updates couldn’t start. Reopen Brinmoor to try again.");
        Q_EMIT changed();
    }
}

bool AppUpdater::validateMenuItem() const {
    return canCheck_ && !unavailableReason_;
}

void AppUpdater::checkForUpdates() {
    if (!validateMenuItem())
        return;
    if (activateApplication)
        activateApplication();
    updater_->checkForUpdates();
}

void AppUpdater::setAutomaticallyChecksForUpdates(bool on) {
    if (updater_ != nullptr)
        updater_->setAutomaticallyChecksForUpdates(on);
}

} // namespace brinmoor
