#include "platform/Pictures.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QImage>
#include <QPixmap>

#include "platform/Fault.h"
#include "platform/TextCoding.h"

namespace {

constexpr int SheetColumns = 16;

/// The sheet at the resolution of the screen: each comes at single and at double size.
QImage LoadSheet(std::string_view name) {
    const bool doubleSize = qGuiApp->devicePixelRatio() > 1.0;
    const QString path = QStringLiteral(":/pictures/") + QString::fromLatin1(name.data(), qsizetype(name.size()));
    QImage sheet(path + (doubleSize ? QStringLiteral("@2x.png") : QStringLiteral(".png")));
    sheet.setDevicePixelRatio(doubleSize ? 2.0 : 1.0);
    return sheet;
}

bool IsOpaque(const QImage& image) {
    if (!image.hasAlphaChannel()) {
        return true;
    }
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if (qAlpha(image.pixel(x, y)) != 255) {
                return false;
            }
        }
    }
    return true;
}

}  // namespace

// Opaque pictures without an alpha channel are copied to the screen, others must be blended: an order of
// magnitude for the map's hundreds of cells.
Picture::Picture(const QImage& image)
    : pixmap_(std::make_shared<const QPixmap>(QPixmap::fromImage(
          image.convertToFormat(IsOpaque(image) ? QImage::Format_RGB32 : QImage::Format_ARGB32_Premultiplied)))) {}

ImageList::ImageList(std::string_view name, int count, int width, int height) {
    const QImage sheet = LoadSheet(name).convertToFormat(QImage::Format_ARGB32);
    const int scale = static_cast<int>(sheet.devicePixelRatio());
    pictures_.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const QRect cell(i % SheetColumns * width, i / SheetColumns * height, width, height);
        pictures_.emplace_back(
            sheet.copy(QRect(cell.topLeft() * scale, QSize(cell.width() * scale, cell.height() * scale))));
    }
}

const Picture& ImageList::operator[](int index) const {
    if (index < 1 || index > static_cast<int>(pictures_.size())) {
        throw Fault(FaultNumber::SubscriptOutOfRange);
    }
    return pictures_[static_cast<std::size_t>(index) - 1];
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

Picture FixedPicture(std::string_view name) { return Picture(LoadSheet(name)); }

Picture PictureFromFile(const std::string& path) {
    const QString file = ShownText(path);
    if (!QFileInfo::exists(file)) {
        throw Fault(FaultNumber::FileNotFound);
    }
    const QImage image(file);
    if (image.isNull()) {
        throw Fault(FaultNumber::InvalidPicture);
    }
    return Picture(image);
}
