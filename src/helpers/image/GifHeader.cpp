// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/common/Numbers.h"
#include "helpers/image/ImageHeaders.h"

namespace marquell::helpers {

ImageHeader readGifHeader(Input& input) {
    ImageHeader header;
    const std::string screen = input.bytesAt(6, 4);
    setPixelSize(header, littleEndian(screen, 0, 2), littleEndian(screen, 2, 2));
    header.depth = 8;
    return header;
}

}  // namespace marquell::helpers
