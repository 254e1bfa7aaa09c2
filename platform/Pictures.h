#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

class QImage;
class QPixmap;

/// A picture ready to be painted, shared by all cells that show it. One that is made without arguments is no
/// picture at all.
class Picture {
public:
    Picture() = default;
    explicit Picture(QImage image, int number = 0);

    [[nodiscard]] const QPixmap* Pixmap() const { return pixmap_.get(); }

    /// Its number in its list, from 1; 0 for one of no list.
    [[nodiscard]] int Number() const { return number_; }

    /// The same picture, not merely an equal one.
    bool operator==(const Picture&) const = default;

private:
    std::shared_ptr<const QPixmap> pixmap_;
    int number_ = 0;
};

/// A list of equally large pictures, cut from one of the sheets that the program carries, numbered from 1. A picture
/// is made when it is first asked for.
class ImageList {
public:
    /// Takes the sheet `name`: `count` pictures of `width` by `height` pixels, up to 16 in a row.
    ImageList(std::string_view name, int count, int width, int height);
    ImageList(const ImageList&) = delete;
    ImageList& operator=(const ImageList&) = delete;
    ~ImageList();

    /// Picture `index`, from 1. Fault 9 outside the list.
    [[nodiscard]] const Picture& operator[](int index) const;

private:
    [[nodiscard]] QImage CutOut(int cell) const;

    std::unique_ptr<const QImage> sheet_;
    int width_;
    int height_;
    mutable std::vector<Picture> pictures_;
};

// The lists and the fixed pictures of the program. Each is loaded when it is first asked for.
const ImageList& BlockImgList();  ///< 204 level tiles of 32 by 32, by tile number
const ImageList& BadGuysList();   ///< 10 enemies of 35 by 32, by kind + 1
const ImageList& TBImages();      ///< 10 of 24 by 23, the buttons of MainFrm's toolbar
const ImageList& WorldImages();   ///< 76 world tiles and link sprites of 32 by 32, by tile number
const ImageList& WTBImages();     ///< 6 of 24 by 23, the buttons of WorldFrm's toolbar

/// A sheet that holds a single picture, such as "NukImage".
[[nodiscard]] Picture FixedPicture(std::string_view name);

/// The pixels of a sheet at `zoom` 1 or 2, which stay in the program's read-only data; a null picture if there is no
/// such sheet.
[[nodiscard]] QImage SheetPixels(std::string_view name, int zoom);

/// Takes the pixels of all sheets out of the process's memory. They stay in the system's cache of the program file, and
/// what is painted next comes back by itself. Does nothing on a system that has no such call.
void LetGoOfSheets();

/// The picture in the file at `path`, at the size of `width` by `height` pixels at which it is shown. Fault 53 if there
/// is none, 481 if the toolkit cannot read it, and those of OpenForInput.
[[nodiscard]] Picture PictureFromFile(const std::string& path, int width, int height);
