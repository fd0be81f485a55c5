#include "screens/OnboardingScreen.h"

#include "app/AppModel.h"
#include "screens/Wording.h"

#include <algorithm>
#include <array>

namespace brinmoor {
namespace {

struct Page {
    std::string_view heading;
    std::string_view text;
};

constexpr std::array<Page, OnboardingScreen::totalSteps> pages{{
    {"Keep the good stuff close.",
     "While you’re browsing, press this to save the current page to your library."},
    {"Your library stays light.",
     "Search titles, websites, notes, and tags. Everything you save stays one search away."},
    {"Finish with a simple swipe.",
     "Short swipe to delete, or archive a link to clear your active library. Long swipe archives "
     "immediately."},
}};

} // namespace

OnboardingScreen::OnboardingScreen(AppModel& model, QObject* parent)
    : QObject(parent), model_(model) {
    connect(&model, &AppModel::sheetsChanged, this, [this] { follow(); });
    connect(&model, &AppModel::shortcutsChanged, this, &OnboardingScreen::shortcutChanged);
    follow();
}

bool OnboardingScreen::isShown() const {
    return model_.isShowingOnboarding();
}

void OnboardingScreen::follow() {
    if (isShown() == shown_)
        return;
    shown_ = isShown();
    if (shown_)
        setStep(0);
    Q_EMIT shownChanged();
}

QString OnboardingScreen::progress() const {
    return QString::number(step_ + 1) + words(" of ") + QString::number(totalSteps);
}

QString OnboardingScreen::heading() const {
    return words(pages[std::size_t(step_)].heading);
}

QString OnboardingScreen::text() const {
    return words(pages[std::size_t(step_)].text);
}

QString OnboardingScreen::continueText() const {
    return step_ + 1 == totalSteps ? words("Start saving") : words("Continue");
}

QStringList OnboardingScreen::shortcut() const {
    QStringList keys;
    const auto found = model_.shortcuts().find(CaptureAction::quick);
    if (found != model_.shortcuts().end())
        for (const std::string& key : found->second.keys())
            keys.append(QString::fromStdString(key));
    return keys;
}

void OnboardingScreen::setStep(int step) {
    const int next = std::clamp(step, 0, totalSteps - 1);
    if (next == step_)
        return;
    step_ = next;
    Q_EMIT stepChanged();
}

void OnboardingScreen::goBack() {
    setStep(step_ - 1);
}

void OnboardingScreen::goOn() {
    if (step_ + 1 == totalSteps)
        model_.completeOnboarding();
    else
        setStep(step_ + 1);
}

void OnboardingScreen::dismiss() {
    model_.setShowingOnboarding(false);
}

} // namespace brinmoor
