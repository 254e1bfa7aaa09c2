// Joins picture files to the one file that the program carries: embed_pictures OUTPUT PICTURE... A picture named
// "Name@2x" before its last point is the sheet "Name" at zoom 2.

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <utility>
#include <vector>

#include "platform/SheetIndex.h"

namespace {

/// The system brings in a file in portions of this many bytes.
constexpr std::size_t Portion = 65536;

struct Sheet {
    SheetEntry entry;
    QImage picture;
};

Sheet ReadSheet(const char* path) {
    const QByteArrayList parts = QFileInfo(QString::fromLocal8Bit(path)).completeBaseName().toLatin1().split('@');
    const QImage picture = QImage(QString::fromLocal8Bit(path)).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    Sheet sheet{{}, picture};
    if (picture.isNull() || std::size_t(parts[0].size()) >= sheet.entry.name.size()) {
        std::fprintf(stderr, "%s is no picture, or its name is too long\n", path);
        std::exit(EXIT_FAILURE);
    }
    std::copy(parts[0].begin(), parts[0].end(), sheet.entry.name.begin());
    sheet.entry.zoom = parts.size() == 1 ? 1 : 2;
    sheet.entry.width = std::uint32_t(picture.width());
    sheet.entry.height = std::uint32_t(picture.height());
    return sheet;
}

/// What is shown together stands together: a plain screen needs zoom 1 alone, and the small sheets at once. The
/// large ones start at a portion of their own, since one row of the tiles that are 32 pixels wide is just that large.
void Arrange(std::vector<Sheet>& sheets) {
    std::sort(sheets.begin(), sheets.end(), [](const Sheet& a, const Sheet& b) {
        return std::pair(a.entry.zoom, a.picture.sizeInBytes()) < std::pair(b.entry.zoom, b.picture.sizeInBytes());
    });
    std::size_t end = (sheets.size() + 1) * sizeof(SheetEntry);
    for (Sheet& sheet : sheets) {
        const auto size = std::size_t(sheet.picture.sizeInBytes());
        if (size > Portion) {
            end = (end + Portion - 1) / Portion * Portion;
        }
        sheet.entry.offset = std::uint32_t(end);
        end += size;
    }
}

bool Write(const std::vector<Sheet>& sheets, const char* path) {
    QFile output(QString::fromLocal8Bit(path));
    bool written = output.open(QIODevice::WriteOnly);
    const auto write = [&](const void* data, std::size_t size) {
        written = written && output.write(static_cast<const char*>(data), qint64(size)) == qint64(size);
    };
    for (const Sheet& sheet : sheets) {
        write(&sheet.entry, sizeof(SheetEntry));
    }
    for (const Sheet& sheet : sheets) {
        written = written && output.seek(sheet.entry.offset);
        write(sheet.picture.constBits(), std::size_t(sheet.picture.sizeInBytes()));
    }
    return written && output.flush();
}

}  // namespace

int main(int argc, char** argv) {
    std::vector<Sheet> sheets;
    for (int i = 2; i < argc; ++i) {
        sheets.push_back(ReadSheet(argv[i]));
    }
    Arrange(sheets);
    return argc > 2 && Write(sheets, argv[1]) ? EXIT_SUCCESS : EXIT_FAILURE;
}
