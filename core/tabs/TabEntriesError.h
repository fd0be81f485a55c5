#pragma once

namespace brinmoor {

/// The bytes were not the JSON list that a script should have given.
struct TabEntriesError {};

} // namespace brinmoor
