#include "platform/FileList.h"

#include <QListWidget>
#include <QSignalBlocker>
#include <algorithm>
#include <filesystem>
#include <system_error>
#include <tuple>

#include "platform/EventQueue.h"
#include "platform/Fault.h"
#include "platform/TextCoding.h"
#include "platform/Texts.h"

namespace fs = std::filesystem;

namespace {

std::vector<std::string> FilesOf(const std::string& folder) {
    std::error_code error;
    std::vector<std::string> names;
    for (fs::directory_iterator entry(folder, error), end; entry != end && !error; entry.increment(error)) {
        std::error_code unreadable;  // a dangling link is listed: choosing it tells what is wrong
        if (!entry->is_directory(unreadable)) {
            names.push_back(entry->path().filename().string());
        }
    }
    if (error) {
        const bool readable = error != std::errc::permission_denied;
        throw Fault(readable ? FaultNumber::PathNotFound : FaultNumber::PathFileAccessError);
    }
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
    names_ = FilesOf(folder);
    const QSignalBlocker quiet(list_);
    list_->clear();
    for (const std::string& name : names_) {
        list_->addItem(ShownText(name));
    }
}
