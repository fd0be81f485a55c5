// One of several copies of a program that write preferences at once: sets `count` keys that begin
// with `prefix`, and one key that all copies share.

#include "platform/linux/JsonPreferences.h"

#include <QCoreApplication>

#include <string>

int main(int count, char** arguments) {
    const QCoreApplication application(count, arguments);
    if (count != 4)
        return 2;
    brinmoor::JsonPreferences preferences(arguments[1]);
    const std::string prefix = arguments[2];
    const int writes = std::stoi(arguments[3]);
    for (int i = 0; i < writes; ++i) {
        if (!preferences.set(prefix + std::to_string(i), prefix) ||
            !preferences.set("shared", i % 2 == 0))
            return 1;
    }
    return 0;
}
