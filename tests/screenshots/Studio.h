#pragma once

#include "app/AppModel.h"
#include "app/SavedSettings.h"
#include "screens/QuickPanels.h"
#include "tests/screenshots/Sample.h"
#include "tests/support/MadeUpParts.h"
#include "tests/support/TemporaryFolder.h"
#include "tests/support/Waiting.h"

#include <QString>

namespace brinmoor {

/// A state that doesn't come leaves nothing to take a picture of.
template <class Condition>
void await(Condition condition) {
    if (!testing::waitUntil(condition))
        qFatal("A screen doesn't come to the state that is wanted.");
}

/// What the application needs, none of it real.
struct Desk : testing::MadeUpParts {
    testing::TemporaryFolder folder;
    explicit Desk(const Library& library);
    [[nodiscard]] std::string libraryPath() const { return folder.path("library.json"); }
    [[nodiscard]] AppParts parts() { return partsFor(libraryPath()); }
};

/// Takes pictures of windows in one theme.
class Studio {
public:
    Studio(QString folder, AppAppearance appearance);

    /// "cream" or "black".
    [[nodiscard]] std::string theme() const { return theme_.toStdString(); }
    [[nodiscard]] QuickPanels& panels() noexcept { return panels_; }
    /// Lets animations come to their end.
    static void settle(int milliseconds);
    /// Writes a picture of the window's content: NAME-THEME.png.
    void take(Panel& panel, const QString& name);

private:
    QString folder_;
    QString theme_;
    QuickPanels panels_;
};

/// The library in its states, and the swipes of its rows.
void takeLibraryStates(Studio& studio);

/// The link editors, the tags, the e-mail and the review of tabs to close.
void takeSheets(Studio& studio);

/// The settings, the browsers' page, the tour and the account.
void takeSettings(Studio& studio);

/// The search of open tabs.
void takeTabSearch(Studio& studio);

} // namespace brinmoor
