#pragma once

#include <QQmlEngine>

namespace brinmoor {

class Appearance;

/// Makes the QML module "Brinmoor" known. Needed once before an engine loads a screen; further
/// calls do nothing.
void registerScreens();

/// The theme object of an engine's screens.
[[nodiscard]] Appearance& appearanceOf(QQmlEngine& engine);

} // namespace brinmoor
