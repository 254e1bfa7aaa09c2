#include "platform/FileList.h"

#include <QListWidget>
#include <QSignalBlocker>
#include <algorithm>
#include <tuple>

#include "platform/EventQueue.h"
#include "platform/Files.h"
#include "platform/TextCoding.h"
#include "platform/Texts.h"

namespace {

std::vector<std::string> SortedFilesIn(const std::string& folder) {
    std::vector<std::string> names = FilesIn(folder);
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        return std::make_tuple(UpperCase(a), a) < std::make_tuple(UpperCase(b), b);
    });
    return names;
}

}  // namespace

void FileList::Create(Container& container, const std::string& name, Place place) {
    list_ = new QListWidget(container.ContainerWidget());
    list_->setUniformItemSizes(true);
    // The selection, not the current row: that one moves when the list merely gets the focus.
    QObject::connect(list_, &QListWidget::itemSelectionChanged, list_, [this] {
        const int row = list_->currentRow();
        if (Click && row >= 0) {
            Raise(*list_, [&] { Click(Element(names_, row)); });
        }
    });
    Adopt(list_, name, place);
}

void FileList::SetFolder(const std::string& folder) {
    names_ = SortedFilesIn(folder);
    const QSignalBlocker quiet(list_);
    list_->clear();
    for (const std::string& name : names_) {
        list_->addItem(ShownText(name));
    }
}
