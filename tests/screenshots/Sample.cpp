#include "tests/screenshots/Sample.h"

namespace brinmoor {

SavedLink sampleLink(std::string url, std::string title, double hoursAgo, unsigned char number) {
    Uuid id;
    id.bytes.back() = number;
    return {std::move(url),
            std::move(title),
            "Chromium",
            "Inbox",
            id,
            Instant{sampleNow.seconds - hoursAgo * 3600}};
}

Library sampleLibrary() {
    SavedLink guide = sampleLink("https://quietmachines.blog/slow-software",
                                 "A field guide to slow software", 1, 1);
    guide.tags = {"essays", "craft"};
    guide.note = "The part about finishing things is worth rereading before planning the next "
                 "release.";
    guide.isFavorite = true;
    SavedLink bread = sampleLink("https://breadlab.org/sourdough", "Sourdough, hour by hour", 2, 2);
    bread.tags = {"baking"};
    SavedLink railways =
        sampleLink("https://northline.no/bergen", "The mountain railways around Bergen", 3, 3);
    railways.tags = {"travel"};
    railways.note = "For the trip in May. Ask Mara about the early train.";
    SavedLink type = sampleLink("https://letterpress.studio/screens",
                                "Typography for reading on screens: a practical checklist for "
                                "people who build things to be read",
                                26, 4);
    type.tags = {"design", "typography"};
    type.isFavorite = true;
    SavedLink tides =
        sampleLink("https://tidewatch.org.uk/tables", "How tide tables are made", 28, 5);
    SavedLink maps =
        sampleLink("https://oldmaps.net/coast", "A thousand coastlines, drawn by hand", 50, 6);
    maps.tags = {"maps", "drawing", "history", "coast", "Réunion", "旅行", "paper"};
    SavedLink apple = sampleLink("https://fernandfield.com/under-the-apple-tree",
                                 "What to plant under an old apple tree 🌱", 75, 7);
    apple.tags = {"garden", "spring", "sport"};
    Library library;
    library.links = {guide, bread, railways, type, tides, maps, apple};
    return library;
}

} // namespace brinmoor
