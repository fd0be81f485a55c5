#pragma once

namespace brinmoor {

/// Puts the Linux wording in force: texts that would be false or a dead end here get the words of
/// brinmoor_linux.ts, all others stay as they are. Called once at start on the main thread.
void installLinuxWording();

} // namespace brinmoor
