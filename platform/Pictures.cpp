#include "platform/Pictures.h"

#include <QBuffer>
#include <QGuiApplication>
#include <QImage>
#include <QImageReader>
#include <QPixmap>
#include <utility>

#include "platform/Fault.h"
#include "platform/Files.h"
#include "platform/SheetIndex.h"

#if __has_include(<sys/mman.h>)
#include <sys/mman.h>
#endif

extern "C" const SheetEntry fb_pictures[];  // and the pixels; in PictureData.cpp
extern "C" const SheetEntry fb_pictures_end[];

namespace {

constexpr int SheetColumns = 16;

/// Megabytes that decoding may take: 23000 by 23000 pixels. What claims to be larger is a broken file.
constexpr int LargestPicture = 2048;

/// At the resolution of the screen: each sheet comes at single and at double size.
QImage SheetOfScreen(std::string_view name) {
    const int zoom = qGuiApp->devicePixelRatio() > 1.0 ? 2 : 1;
    QImage sheet = SheetPixels(name, zoom);
    sheet.setDevicePixelRatio(zoom);
    return sheet;
}

}  // namespace

QImage SheetPixels(std::string_view name, int zoom) {
    const auto* bytes = static_cast<const unsigned char*>(static_cast<const void*>(fb_pictures));
    for (const SheetEntry* entry = fb_pictures; entry->name[0] != 0; ++entry) {
        if (entry->name.data() == name && entry->zoom == static_cast<std::uint32_t>(zoom)) {
            return {bytes + entry->offset, static_cast<int>(entry->width), static_cast<int>(entry->height),
                    QImage::Format_ARGB32_Premultiplied};
        }
    }
    return {};
}

// The toolkit finds out by itself whether a picture is opaque. One that is gets copied to the screen, others must be
// blended: an order of magnitude for the map's hundreds of cells.
Picture::Picture(QImage image, int number)
    : pixmap_(std::make_shared<const QPixmap>(QPixmap::fromImage(std::move(image)))), number_(number) {}

ImageList::ImageList(std::string_view name, int count, int width, int height)
    : sheet_(std::make_unique<const QImage>(SheetOfScreen(name))),
      width_(width),
      height_(height),
      pictures_(static_cast<std::size_t>(count)) {}

ImageList::~ImageList() = default;

const Picture& ImageList::operator[](int index) const {
    if (index < 1 || index > static_cast<int>(pictures_.size())) {
        throw Fault(FaultNumber::SubscriptOutOfRange);
    }
    Picture& picture = pictures_[static_cast<std::size_t>(index) - 1];
    if (picture.Pixmap() == nullptr) {
        picture = Picture(CutOut(index - 1), index);
    }
    return picture;
}

/// The picture stays where it is in the sheet.
QImage ImageList::CutOut(int cell) const {
    const int zoom = static_cast<int>(sheet_->devicePixelRatio());
    const int x = cell % SheetColumns * width_ * zoom;
    const int y = cell / SheetColumns * height_ * zoom;
    QImage picture(sheet_->constScanLine(y) + x * sheet_->depth() / 8, width_ * zoom, height_ * zoom,
                   sheet_->bytesPerLine(), sheet_->format());
    picture.setDevicePixelRatio(zoom);
    return picture;
}

const ImageList& BlockImgList() {
    static const ImageList list("BlockImgList", 204, 32, 32);
    return list;
}

const ImageList& BadGuysList() {
    static const ImageList list("BadGuysList", 10, 35, 32);
    return list;
}

const ImageList& TBImages() {
    static const ImageList list("TBImages", 10, 24, 23);
    return list;
}

const ImageList& WorldImages() {
    static const ImageList list("WorldImages", 76, 32, 32);
    return list;
}

const ImageList& WTBImages() {
    static const ImageList list("WTBImages", 6, 24, 23);
    return list;
}

Picture FixedPicture(std::string_view name) { return Picture(SheetOfScreen(name)); }

void LetGoOfSheets() {
#if __has_include(<sys/mman.h>)
    const auto* start = static_cast<const char*>(static_cast<const void*>(fb_pictures));
    const auto* end = static_cast<const char*>(static_cast<const void*>(fb_pictures_end));
    // NOLINTNEXTLINE(cppcoreguidelines-pro-type-const-cast): the call takes no const, and writes nothing
    madvise(const_cast<char*>(start), static_cast<std::size_t>(end - start), MADV_DONTNEED);
#endif
}

Picture PictureFromFile(const std::string& path, int width, int height) {
    const int file = FreeFileNumber();
    const FileCloser closer(file);
    OpenForInput(file, path);
    const std::string bytes = ReadBytes(file);
    QByteArray data = QByteArray::fromRawData(bytes.data(), qsizetype(bytes.size()));
    QBuffer buffer(&data);
    QImageReader::setAllocationLimit(LargestPicture);
    QImageReader reader(&buffer);
    const qreal ratio = qGuiApp->devicePixelRatio();
    reader.setScaledSize((QSizeF(width, height) * ratio).toSize());
    QImage image = reader.read();
    if (image.isNull()) {
        throw Fault(FaultNumber::InvalidPicture);
    }
    image.setDevicePixelRatio(ratio);
    return Picture(std::move(image));
}
