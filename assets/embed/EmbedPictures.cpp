// Joins picture files to the one file that the program carries: embed_pictures OUTPUT PICTURE... A picture named
// "Name@2x" before its last point is the sheet "Name" at zoom 2.

#include <QFile>
#include <QFileInfo>
#include <QImage>
#include <cstdio>
#include <cstdlib>
#include <vector>

#include "platform/SheetIndex.h"

namespace {

QImage ReadPicture(const QString& path) {
    const QImage picture = QImage(path).convertToFormat(QImage::Format_ARGB32_Premultiplied);
    if (picture.isNull()) {
        std::fprintf(stderr, "%s is no picture\n", qPrintable(path));
        std::exit(EXIT_FAILURE);
    }
    return picture;
}

SheetEntry EntryOf(const QString& path, const QImage& picture, qsizetype offset) {
    const QList<QByteArray> parts = QFileInfo(path).completeBaseName().toLatin1().split('@');
    SheetEntry entry{{},
                     parts.size() == 1 ? 1U : 2U,
                     static_cast<std::uint32_t>(picture.width()),
                     static_cast<std::uint32_t>(picture.height()),
                     static_cast<std::uint32_t>(offset)};
    if (parts[0].size() >= qsizetype(entry.name.size())) {
        std::fprintf(stderr, "%s has too long a name\n", qPrintable(path));
        std::exit(EXIT_FAILURE);
    }
    std::copy(parts[0].begin(), parts[0].end(), entry.name.begin());
    return entry;
}

}  // namespace

int main(int argc, char** argv) {
    if (argc < 3) {
        return EXIT_FAILURE;
    }
    const std::vector<QString> paths(argv + 2, argv + argc);
    std::vector<SheetEntry> index;
    QByteArray pixels;
    for (const QString& path : paths) {
        const QImage picture = ReadPicture(path);
        index.push_back(EntryOf(path, picture, qsizetype((paths.size() + 1) * sizeof(SheetEntry)) + pixels.size()));
        pixels.append(reinterpret_cast<const char*>(picture.constBits()), picture.sizeInBytes());
    }
    index.push_back({});
    QFile output(QString::fromLocal8Bit(argv[1]));
    const qsizetype size = qsizetype(index.size() * sizeof(SheetEntry));
    const bool written = output.open(QIODevice::WriteOnly) &&
                         output.write(reinterpret_cast<const char*>(index.data()), size) == size &&
                         output.write(pixels) == pixels.size() && output.flush();
    return written ? EXIT_SUCCESS : EXIT_FAILURE;
}
