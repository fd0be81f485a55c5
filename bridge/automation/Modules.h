#pragma once

#include <QJSEngine>

/// The parts of the tool that are written in JavaScript. They are compiled when the tool is built,
/// which saves a third of its start.
namespace brinmoor::automation {

/// The module that gives `install`, see objectModel.mjs; an error if it can't be loaded.
[[nodiscard]] QJSValue objectModel(QJSEngine& engine);

/// The module that gives `installStableSort`; the object model calls it itself.
[[nodiscard]] QJSValue stableSort(QJSEngine& engine);

} // namespace brinmoor::automation
