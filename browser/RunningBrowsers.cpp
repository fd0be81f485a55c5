#include "browser/RunningBrowsers.h"

#include "platform/Workspace.h"

#include <algorithm>
#include <iterator>
#include <set>
#include <string>

namespace brinmoor {

std::vector<Browser> runningBrowsers(const Workspace& workspace) {
    std::set<std::string, std::less<>> running;
    for (const RunningApplication& application : workspace.runningApplications())
        if (application.bundleIdentifier && !application.isTerminated)
            running.insert(*application.bundleIdentifier);
    std::vector<Browser> browsers;
    std::ranges::copy_if(Browser::supported(), std::back_inserter(browsers),
                         [&](const Browser& browser) { return running.contains(browser.id); });
    return browsers;
}

} // namespace brinmoor
