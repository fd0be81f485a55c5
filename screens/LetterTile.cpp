#include "screens/LetterTile.h"

#include "core/text/Characters.h"

namespace brinmoor {

namespace {

struct Tone {
    float saturation;
    float brightness;
};

QColor toned(int hue, Tone tone) {
    return QColor::fromHsvF(float(hue) / 360.0F, tone.saturation, tone.brightness);
}

AppAppearance appearanceOf(bool dark) {
    return dark ? AppAppearance::black : AppAppearance::cream;
}

} // namespace

int domainHue(std::string_view domain) noexcept {
    int hue = 0;
    for (const char byte : domain)
        hue = (hue + static_cast<unsigned char>(byte)) % 360;
    return hue;
}

LetterTile letterTile(std::string_view domain, AppAppearance appearance) {
    const bool dark = appearance == AppAppearance::black;
    const int hue = domainHue(domain);
    return {.letter = QString::fromStdString(text::uppercased(text::firstGraphemes(domain, 1))),
            .ground = toned(hue, dark ? Tone{0.18F, 0.24F} : Tone{0.1F, 0.94F}),
            .ink = toned(hue, dark ? Tone{0.22F, 0.84F} : Tone{0.28F, 0.5F})};
}

QString LetterTiles::letter(const QString& domain) const {
    return letterTile(domain.toStdString(), AppAppearance::black).letter;
}

QColor LetterTiles::ground(const QString& domain, bool dark) const {
    return letterTile(domain.toStdString(), appearanceOf(dark)).ground;
}

QColor LetterTiles::ink(const QString& domain, bool dark) const {
    return letterTile(domain.toStdString(), appearanceOf(dark)).ink;
}

} // namespace brinmoor
