// brinmoor-icon-decoder: the bytes of a picture in, a small PNG out. Nothing and a status of
// failure when there is no picture.

#include "icons/IconPictures.h"
#include "icons/decoder/Confinement.h"
#include "icons/decoder/Icon.h"

#include <array>
#include <cstdio>
#include <cstdlib>

namespace {

constexpr qsizetype largestPicture = 1 << 20;

QByteArray readInput() {
    QByteArray input;
    std::array<char, 65536> piece{};
    while (const std::size_t size = std::fread(piece.data(), 1, piece.size(), stdin)) {
        input.append(piece.data(), static_cast<qsizetype>(size));
        if (input.size() > largestPicture)
            return {};
    }
    return input;
}

bool writeOutput(const QByteArray& output) {
    const auto size = static_cast<std::size_t>(output.size());
    return std::fwrite(output.constData(), 1, size, stdout) == size && std::fflush(stdout) == 0;
}

} // namespace

int main() {
    brinmoor::decoder::prepare();
    if (!brinmoor::decoder::confine())
        return EXIT_FAILURE;
    const auto icon = brinmoor::decoder::iconOf(readInput(), brinmoor::IconPictures::longestSide);
    // Nothing of what the picture may have left behind is taken down in order.
    std::_Exit(icon && writeOutput(*icon) ? EXIT_SUCCESS : EXIT_FAILURE);
}
