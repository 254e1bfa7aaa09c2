#include "platform/FileDialog.h"

#include <QComboBox>
#include <QDateTime>
#include <QDir>
#include <QGridLayout>
#include <QHeaderView>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QStyle>
#include <QToolButton>
#include <QTreeWidget>
#include <algorithm>
#include <chrono>
#include <system_error>
#include <tuple>

#include "platform/Files.h"
#include "platform/OneLine.h"
#include "platform/TextCoding.h"
#include "platform/Texts.h"

namespace fs = std::filesystem;

namespace {

constexpr QSize DialogSize(620, 420);

enum Column { NameColumn, SizeColumn, DateColumn, Columns };

QString Shown(const fs::path& path) { return ShownText(PathBytes(path)); }

/// Whether a file of this name is listed: the pattern is "*" and an ending, or one name. The case of letters is the
/// same.
bool Matches(const std::string& name, const std::string& pattern) {
    const std::string upper = UpperCase(name);
    return pattern.starts_with('*') ? upper.ends_with(UpperCase(pattern.substr(1))) : upper == UpperCase(pattern);
}

/// `place` if it is a folder, else the nearest one above it that exists.
fs::path NearestFolder(fs::path place) {
    std::error_code error;
    while (!fs::is_directory(place, error) && place.has_relative_path()) {
        place = place.parent_path();
    }
    return place.empty() ? fs::current_path(error) : place;
}

/// What `typed` means in `folder`: a name of that spelling in UTF-8, or else one of those there that show so.
fs::path Named(const fs::path& folder, const QString& typed) {
    fs::path spelt = folder / HostPath(TextBytes(typed));
    std::error_code error;
    if (fs::exists(spelt, error)) {
        return spelt;
    }
    for (fs::directory_iterator entry(folder, error), end; entry != end && !error; entry.increment(error)) {
        if (Shown(entry->path().filename()) == typed) {
            return entry->path();
        }
    }
    return spelt;
}

QString ShownDate(fs::file_time_type time) {
    const auto age = std::chrono::duration_cast<std::chrono::seconds>(fs::file_time_type::clock::now() - time);
    return QLocale().toString(QDateTime::currentDateTime().addSecs(-age.count()), QLocale::ShortFormat);
}

QToolButton* MakeToolButton(QWidget* parent, QStyle::StandardPixmap icon, const QString& toolTip) {
    auto* button = new QToolButton(parent);
    button->setIcon(parent->style()->standardIcon(icon));
    button->setToolTip(toolTip);
    button->setAutoRaise(true);
    return button;
}

}  // namespace

FileDialog::FileDialog(const FileDialogSetup& setup, Purpose purpose, QWidget* owner)
    : QDialog(owner),
      purpose_(purpose),
      pattern_(setup.filter.substr(setup.filter.find('|') + 1)),
      proposal_(setup.proposedName) {
    setWindowTitle(purpose == Purpose::Open ? tr("Open") : tr("Save As"));
    MakeWidgets(pattern_);
    resize(DialogSize);
    GoTo(NearestFolder(HostPath(setup.folder)));
    name_->setText(ShownText(proposal_));
    name_->selectAll();
    name_->setFocus();
    KeepFirstLineIn(*name_);
}

void FileDialog::MakeWidgets(const std::string& filter) {
    places_ = new QComboBox(this);
    places_->setAccessibleName(tr("Folder"));
    connect(places_, &QComboBox::activated, this, [this](int index) {
        const fs::path place = placePaths_[static_cast<std::size_t>(index)];
        GoTo(place);
    });
    auto* up = MakeToolButton(this, QStyle::SP_FileDialogToParent, tr("Parent Folder (Alt+Up)"));
    up->setShortcut(QKeySequence(Qt::ALT | Qt::Key_Up));
    connect(up, &QToolButton::clicked, this, [this] { GoTo(folder_.parent_path()); });
    auto* add = MakeToolButton(this, QStyle::SP_FileDialogNewFolder, tr("Create New Folder"));
    connect(add, &QToolButton::clicked, this, [this] { MakeNewFolder(); });

    list_ = new QTreeWidget(this);
    list_->setAccessibleName(tr("Files"));
    list_->setHeaderLabels({tr("Name"), tr("Size"), tr("Date Modified")});
    list_->setRootIsDecorated(false);
    list_->setUniformRowHeights(true);
    list_->header()->setStretchLastSection(false);
    list_->header()->setSectionResizeMode(QHeaderView::ResizeToContents);
    list_->header()->setSectionResizeMode(NameColumn, QHeaderView::Stretch);
    list_->header()->setSectionsClickable(false);
    const auto rowOf = [this](QTreeWidgetItem* item) { return list_->indexOfTopLevelItem(item); };
    connect(list_, &QTreeWidget::currentItemChanged, this,
            [this, rowOf](QTreeWidgetItem* item) { PickRow(rowOf(item)); });
    connect(list_, &QTreeWidget::itemDoubleClicked, this,
            [this, rowOf](QTreeWidgetItem* item) { ActivateRow(rowOf(item)); });
    list_->installEventFilter(this);

    name_ = new QLineEdit(this);
    name_->setObjectName(QStringLiteral("fileNameEdit"));
    auto* nameLabel = new QLabel(tr("File &name:"), this);
    nameLabel->setBuddy(name_);
    auto* accept = new QPushButton(purpose_ == Purpose::Open ? tr("&Open") : tr("&Save"), this);
    accept->setDefault(true);
    connect(accept, &QPushButton::clicked, this, [this] { TakeName(); });
    auto* cancel = new QPushButton(tr("Cancel"), this);
    cancel->setAutoDefault(false);
    connect(cancel, &QPushButton::clicked, this, &QDialog::reject);

    auto* grid = new QGridLayout(this);
    grid->addWidget(new QLabel(tr("Look in:"), this), 0, 0);
    grid->addWidget(places_, 0, 1);
    grid->addWidget(up, 0, 2);
    grid->addWidget(add, 0, 3);
    grid->addWidget(list_, 1, 0, 1, 4);
    grid->addWidget(nameLabel, 2, 0);
    grid->addWidget(name_, 2, 1);
    grid->addWidget(accept, 2, 2, 1, 2);
    grid->addWidget(new QLabel(tr("Files of type:"), this), 3, 0);
    grid->addWidget(new QLabel(ShownText(filter), this), 3, 1);
    grid->addWidget(cancel, 3, 2, 1, 2);
    grid->setColumnStretch(1, 1);
    const std::initializer_list<QWidget*> tabs{name_, accept, cancel, places_, up, add, list_};
    for (const auto* tab = tabs.begin(); tab + 1 != tabs.end(); ++tab) {
        setTabOrder(tab[0], tab[1]);
    }
}

/// Keys in the list. The toolkit's list would pass Enter on to the dialog's button, which takes the name box.
bool FileDialog::eventFilter(QObject* watched, QEvent* event) {
    if (watched != list_ || event->type() != QEvent::KeyPress) {
        return QDialog::eventFilter(watched, event);
    }
    switch (static_cast<QKeyEvent*>(event)->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter: ActivateRow(list_->indexOfTopLevelItem(list_->currentItem())); return true;
        case Qt::Key_Backspace: GoTo(folder_.parent_path()); return true;
        default: return false;
    }
}

void FileDialog::GoTo(const fs::path& folder) {
    folder_ = folder;
    placePaths_ = {folder_};
    while (placePaths_.front().has_relative_path()) {
        placePaths_.insert(placePaths_.begin(), placePaths_.front().parent_path());
    }
    const int own = static_cast<int>(placePaths_.size()) - 1;
    for (const QFileInfo& drive : QDir::drives()) {
        const fs::path root = HostPath(TextBytes(QDir::toNativeSeparators(drive.absoluteFilePath())));
        if (root != folder_.root_path()) {
            placePaths_.push_back(root);
        }
    }
    places_->clear();
    for (const fs::path& place : placePaths_) {
        places_->addItem(style()->standardIcon(QStyle::SP_DirIcon), Shown(place));
    }
    places_->setCurrentIndex(own);
    ListFolder();
}

void FileDialog::ListFolder() {
    entries_.clear();
    list_->clear();
    std::error_code error;
    for (fs::directory_iterator entry(folder_, error), end; entry != end && !error; entry.increment(error)) {
        std::error_code unreadable;  // a dangling link is a file: opening it tells what is wrong
        const bool folder = entry->is_directory(unreadable);
        const std::string name = PathBytes(entry->path().filename());
        if (folder || Matches(name, pattern_)) {
            entries_.push_back({name, folder});
        }
    }
    std::ranges::sort(entries_, {}, [](const Entry& entry) {
        return std::make_tuple(!entry.folder, UpperCase(entry.name), entry.name);
    });
    for (int row = 0; row < static_cast<int>(entries_.size()); ++row) {
        ShowEntry(row);
    }
    if (error) {
        auto* item = new QTreeWidgetItem(list_, {tr("This folder cannot be read.")});
        item->setFlags(Qt::NoItemFlags);
    }
}

void FileDialog::ShowEntry(int row) {
    const Entry& entry = entries_[static_cast<std::size_t>(row)];
    const fs::path path = folder_ / HostPath(entry.name);
    auto* item = new QTreeWidgetItem(list_, {WithSymbols(ShownText(entry.name))});
    item->setIcon(NameColumn, style()->standardIcon(entry.folder ? QStyle::SP_DirIcon : QStyle::SP_FileIcon));
    std::error_code error;
    if (const auto size = fs::file_size(path, error); !entry.folder && !error) {
        item->setText(SizeColumn, QLocale().formattedDataSize(qint64(size)));
    }
    if (const auto time = fs::last_write_time(path, error); !error) {
        item->setText(DateColumn, ShownDate(time));
    }
    item->setTextAlignment(SizeColumn, Qt::AlignRight | Qt::AlignVCenter);
}

const FileDialog::Entry* FileDialog::EntryAt(int row) const {
    return row >= 0 && row < static_cast<int>(entries_.size()) ? &entries_[static_cast<std::size_t>(row)] : nullptr;
}

void FileDialog::PickRow(int row) {
    if (const Entry* entry = EntryAt(row); entry != nullptr && !entry->folder) {
        name_->setText(ShownText(entry->name));
    }
}

void FileDialog::ActivateRow(int row) {
    const Entry* entry = EntryAt(row);
    if (entry == nullptr) {
        return;
    }
    const fs::path path = folder_ / HostPath(entry->name);
    if (entry->folder) {
        GoTo(path);
    } else {
        chosen_ = PathBytes(path);
        accept();
    }
}

void FileDialog::MakeNewFolder() {
    const std::string name = InputBox("Name of the new folder", "Create New Folder");
    if (name.empty()) {
        return;
    }
    try {
        const fs::path made = folder_ / HostPath(name);
        MakeFolder(PathBytes(made));
        GoTo(made);
    } catch (const Fault& fault) {
        ShowMessage(fault.what(), "Create New Folder", MessageButtons::Ok, MessageIcon::Warning);
    }
}

/// Goes into a folder that is named; takes a file.
void FileDialog::TakeName() {
    if (name_->text().isEmpty()) {
        return;
    }
    const fs::path path = NamedPath();
    std::error_code error;
    if (fs::is_directory(path, error)) {
        GoTo(path);
        name_->clear();
    } else if (purpose_ == Purpose::Open && !fs::exists(path, error)) {
        ShowMessage(PathBytes(path.filename()) + "\nFile not found.\nPlease verify the correct file name was given.",
                    "Open", MessageButtons::Ok, MessageIcon::Warning);
    } else {
        chosen_ = PathBytes(path);
        accept();
    }
}

fs::path FileDialog::NamedPath() const {
    const QString typed = name_->text();
    if (typed == ShownText(proposal_)) {
        return (folder_ / HostPath(proposal_)).lexically_normal();  // as it was, byte for byte
    }
    const Entry* picked = EntryAt(list_->indexOfTopLevelItem(list_->currentItem()));
    if (picked != nullptr && typed == ShownText(picked->name)) {
        return folder_ / HostPath(picked->name);
    }
    const fs::path spelt = HostPath(TextBytes(typed));
    // A path from the root on that names no drive is on that of the folder.
    fs::path path = spelt.has_root_path() ? (folder_ / spelt).root_path() : folder_;
    for (const fs::path& part : spelt.relative_path()) {
        path = Named(path, Shown(part));
    }
    return path.lexically_normal();
}
