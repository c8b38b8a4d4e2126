// SPDX-License-Identifier: GPL-3.0-or-later
#include "helpers/image/ImageReader.h"

#include <exiv2/exiv2.hpp>
#include <exiv2/webpimage.hpp>
#include <memory>
#include <new>
#include <string>
#include <type_traits>
#include <utility>

#include "helpers/common/DecodedText.h"
#include "helpers/image/ExifReader.h"
#include "helpers/image/ExifValue.h"
#include "helpers/image/ImageHeader.h"
#include "helpers/image/InputIo.h"
#include "helpers/image/IptcBlock.h"
#include "helpers/image/IptcReader.h"
#include "helpers/image/XmpReader.h"
#include "platform/ImageProperties.h"

namespace marquell::helpers {
namespace {

using Key = platform::ImagePropertyKey;
using platform::PropertyDictionary;

/// What stands in an image file beside its header.
struct Metadata {
    Exiv2::ExifData exif;
    std::string iptc;  ///< data sets
    Exiv2::XmpData xmp;
    Exiv2::ByteOrder order = Exiv2::bigEndian;
    ImageHeader header;  ///< as the library finds it, of the kinds that have none of ours
};

/// Runs a parser that throws on what it doesn't understand. What it got till then is kept.
template <typename Parser>
void leniently(Parser parse) {
    try {
        parse();
    } catch (const std::bad_alloc&) {
        throw;
    } catch (const std::exception&) {
    }
}

template <typename Image>
std::unique_ptr<Exiv2::Image> opened(Input& input) {
    // NOLINTBEGIN(clang-diagnostic-deprecated-declarations): the library has no other interface
    Exiv2::BasicIo::AutoPtr io(new InputIo(input));
    if constexpr (std::is_constructible_v<Image, Exiv2::BasicIo::AutoPtr, bool>) {
        // NOLINTEND(clang-diagnostic-deprecated-declarations)
        return std::make_unique<Image>(io, false);
    } else {
        return std::make_unique<Image>(io);
    }
}

/// The library's reader for a kind of container; null if it has none, or none that is needed. The
/// kind is known: the library's own guess would also take films.
std::unique_ptr<Exiv2::Image> containerOf(Input& input, ImageKind kind) {
    switch (kind) {
        case ImageKind::jpeg:
            return opened<Exiv2::JpegImage>(input);
        case ImageKind::png:
            return opened<Exiv2::PngImage>(input);
        case ImageKind::tiff:
            return opened<Exiv2::TiffImage>(input);
        case ImageKind::cr2:
            return opened<Exiv2::Cr2Image>(input);
        case ImageKind::orf:
            return opened<Exiv2::OrfImage>(input);
        case ImageKind::rw2:
            return opened<Exiv2::Rw2Image>(input);
        case ImageKind::raf:
            return opened<Exiv2::RafImage>(input);
        case ImageKind::cr3:
            return opened<Exiv2::BmffImage>(input);
        case ImageKind::webp:
            return opened<Exiv2::WebPImage>(input);
        case ImageKind::psd:
            return opened<Exiv2::PsdImage>(input);
        case ImageKind::jp2:
            return opened<Exiv2::Jp2Image>(input);
        case ImageKind::heif:
        case ImageKind::gif:
        case ImageKind::bmp:
        case ImageKind::ico:
        case ImageKind::tga:
        case ImageKind::none:
            return nullptr;
    }
    return nullptr;
}

/// Whether a file of the kind is itself made of TIFF directories, which then describe its image.
bool isMadeOfDirectories(ImageKind kind) {
    switch (kind) {
        case ImageKind::tiff:
        case ImageKind::cr2:
        case ImageKind::orf:
        case ImageKind::rw2:
        case ImageKind::raf:
        case ImageKind::cr3:
            return true;
        default:
            return false;
    }
}

std::optional<std::uint32_t> positive(int number) {
    if (number <= 0) return std::nullopt;
    return static_cast<std::uint32_t>(number);
}

void readContainer(Metadata& metadata, Exiv2::Image& image) {
    leniently([&image] { image.readMetadata(); });
    metadata.exif = std::move(image.exifData());
    if (!image.iptcData().empty()) {
        const Exiv2::DataBuf block = Exiv2::IptcParser::encode(image.iptcData());
        metadata.iptc.assign(reinterpret_cast<const char*>(block.pData_),
                             static_cast<std::size_t>(block.size_));
    }
    metadata.xmp = std::move(image.xmpData());
    if (image.byteOrder() != Exiv2::invalidByteOrder) metadata.order = image.byteOrder();
    metadata.header.pixelWidth = positive(image.pixelWidth());
    metadata.header.pixelHeight = positive(image.pixelHeight());
    if (image.iccProfileDefined()) {
        const Exiv2::DataBuf& profile = *image.iccProfile();
        metadata.header.colorProfile.assign(reinterpret_cast<const char*>(profile.pData_),
                                            static_cast<std::size_t>(profile.size_));
    }
}

void readItems(Metadata& metadata, Input& input) {
    const HeifMetadata items = readHeifMetadata(input);
    leniently([&] {
        metadata.order = Exiv2::ExifParser::decode(
            metadata.exif, reinterpret_cast<const Exiv2::byte*>(items.exif.data()),
            static_cast<std::uint32_t>(items.exif.size()));
    });
    leniently([&] { Exiv2::XmpParser::decode(metadata.xmp, items.xmp); });
}

/// The block of data sets in a file's directory, as it stands.
std::string iptcBlockOf(const Exiv2::ExifData& exif) {
    const auto bytesOf = [&exif](const char* field) {
        const auto found = exif.findKey(Exiv2::ExifKey(field));
        return found != exif.end() ? rawBytes(found->value(), Exiv2::bigEndian) : std::string();
    };
    std::string block = bytesOf("Exif.Image.IPTCNAA");
    if (block.starts_with('\x1C')) return block;
    const std::string bytes = bytesOf("Exif.Image.ImageResources");
    MemoryInput resources(bytes);
    return iptcBlockOfResources(resources, 0, resources.size());
}

/// The library gives times a zone that they don't have, so its reading is for the containers that
/// it alone knows.
void preferRawIptc(Metadata& metadata, Input& input, ImageKind kind) {
    std::string block =
        isMadeOfDirectories(kind) ? iptcBlockOf(metadata.exif) : iptcBlock(input, kind);
    if (!block.empty()) metadata.iptc = std::move(block);
}

template <typename Value>
void prefer(std::optional<Value>& first, const std::optional<Value>& second) {
    if (!first) first = second;
}

/// Fills what `header` lacks from `other`.
void complete(ImageHeader& header, const ImageHeader& other) {
    prefer(header.pixelWidth, other.pixelWidth);
    prefer(header.pixelHeight, other.pixelHeight);
    prefer(header.dpiWidth, other.dpiWidth);
    prefer(header.dpiHeight, other.dpiHeight);
    prefer(header.depth, other.depth);
    if (header.colorModel.empty()) header.colorModel = other.colorModel;
    if (header.colorProfile.empty()) header.colorProfile = other.colorProfile;
}

/// Puts together what the container, its directories and the library say of the image.
ImageHeader headerOf(Input& input, ImageKind kind, const Metadata& metadata) {
    ImageHeader header = readImageHeader(input, kind);
    ImageHeader directories = directoryHeader(metadata.exif);
    if (!isMadeOfDirectories(kind)) {
        // They describe the image that the camera made, not what became of it since.
        directories.pixelWidth = directories.pixelHeight = directories.depth = std::nullopt;
        directories.colorModel = {};
    }
    if (kind == ImageKind::jpeg) {
        // The density of a JPEG's own header is mostly a default.
        prefer(directories.dpiWidth, header.dpiWidth);
        prefer(directories.dpiHeight, header.dpiHeight);
        header.dpiWidth = directories.dpiWidth;
        header.dpiHeight = directories.dpiHeight;
    }
    const bool isOfPreview =
        kind == ImageKind::cr2 || kind == ImageKind::cr3 || kind == ImageKind::raf;
    if (isOfPreview) complete(header, photoHeader(metadata.exif));
    complete(header, directories);
    complete(header, metadata.header);
    return header;
}

void addHeaderProperties(PropertyDictionary& properties, const ImageHeader& header) {
    const auto add = [&properties](Key key, const auto& number) {
        if (number) {
            properties.emplace(static_cast<platform::PropertyKey>(key),
                               static_cast<double>(*number));
        }
    };
    add(Key::kCGImagePropertyPixelWidth, header.pixelWidth);
    add(Key::kCGImagePropertyPixelHeight, header.pixelHeight);
    add(Key::kCGImagePropertyDPIWidth, header.dpiWidth);
    add(Key::kCGImagePropertyDPIHeight, header.dpiHeight);
    add(Key::kCGImagePropertyDepth, header.depth);
    const auto addText = [&properties](Key key, std::string_view text) {
        if (!text.empty()) {
            properties.emplace(static_cast<platform::PropertyKey>(key), std::string(text));
        }
    };
    const ProfileDescription profile = describeColorProfile(header.colorProfile);
    addText(Key::kCGImagePropertyProfileName, profile.name);
    // Of the kinds that don't say, all have pixels of red, green and blue.
    const std::string_view model = header.colorModel.empty() ? "RGB" : header.colorModel;
    addText(Key::kCGImagePropertyColorModel,
            profile.colorModel.empty() ? model : profile.colorModel);
}

PropertyDictionary readKind(Input& input, ImageKind kind) {
    Metadata metadata;
    if (const auto container = containerOf(input, kind)) readContainer(metadata, *container);
    if (kind == ImageKind::heif) readItems(metadata, input);
    preferRawIptc(metadata, input, kind);
    PropertyDictionary properties;
    leniently([&] { addHeaderProperties(properties, headerOf(input, kind, metadata)); });
    leniently([&] { addExifProperties(properties, metadata.exif, metadata.order); });
    addIptcProperties(properties, metadata.iptc);
    leniently([&] { addXmpProperties(properties, metadata.xmp); });
    return properties;
}

}  // namespace

void prepareImageReader() {
    Exiv2::LogMsg::setLevel(Exiv2::LogMsg::mute);
    Exiv2::XmpParser::initialize();
    Exiv2::enableBMFF(true);
    prepareDecoding();
}

bool readsSampleImage() {
    using namespace std::string_view_literals;
    // One pixel, a directory with the maker "Me" and a packet of XMP with a rating.
    constexpr std::string_view sample =
        "\xFF\xD8"
        "\xFF\xE1\0\x22"
        "Exif\0\0II*\0\x08\0\0\0\1\0\x0F\1\2\0\3\0\0\0Me\0\0\0\0\0\0"
        "\xFF\xE1\0\xB4"
        "http://ns.adobe.com/xap/1.0/\0"
        "<rdf:RDF xmlns:rdf='http://www.w3.org/1999/02/22-rdf-syntax-ns#'>"
        "<rdf:Description xmlns:xmp='http://ns.adobe.com/xap/1.0/' xmp:Rating='5'/></rdf:RDF>"
        "\xFF\xC0\0\x0B\x08\0\1\0\1\1\1\x11\0\xFF\xDA"sv;
    MemoryInput input(sample);
    const auto has = [](const PropertyDictionary& properties, Key key,
                        const platform::PropertyValue& value) {
        const auto found = properties.find(static_cast<platform::PropertyKey>(key));
        return found != properties.end() && found->second == value;
    };
    const auto properties = readImage(input, "jpg");
    return properties && has(*properties, Key::kCGImagePropertyPixelWidth, 1.0) &&
           has(*properties, Key::kCGImagePropertyTIFFMake, "Me") &&
           has(*properties, Key::kCGImagePropertyIPTCStarRating, 5.0);
}

std::optional<PropertyDictionary> readImage(Input& input, std::string_view extension) {
    const ImageKind kind = imageKindOf(input, extension);
    if (kind == ImageKind::none) return std::nullopt;
    return readKind(input, kind);
}

}  // namespace marquell::helpers
