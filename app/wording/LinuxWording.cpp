#include "app/wording/LinuxWording.h"

#include "core/text/Wording.h"

#include <QTranslator>

#include <string>

namespace brinmoor {
namespace {

const QTranslator& linuxWords() {
    static const QTranslator* const words = [] {
        auto* loading = new QTranslator;
        if (!loading->load(QStringLiteral(":/wording/brinmoor_linux.qm")))
            qFatal("The wording for this platform is missing from the program.");
        return loading;
    }();
    return *words;
}

std::string inLinuxWords(std::string_view source) {
    const QString found = linuxWords().translate("Brinmoor", std::string(source).c_str());
    return found.isNull() ? std::string(source) : found.toStdString();
}

} // namespace

void installLinuxWording() {
    text::setWording(&inLinuxWords);
}

} // namespace brinmoor
