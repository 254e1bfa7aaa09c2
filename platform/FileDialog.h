#pragma once

#include <QDialog>
#include <QString>
#include <filesystem>
#include <string>
#include <vector>

#include "platform/Dialogs.h"

class QComboBox;
class QLineEdit;
class QTreeWidget;

/// The dialog for the choice of a file. The toolkit's own one knows names as text in one encoding and leaves out all
/// files and folders whose names are not in it; in this one names are bytes, and only shown as text.
class FileDialog : public QDialog {
public:
    enum class Purpose { Open, Save };

    FileDialog(const FileDialogSetup& setup, Purpose purpose, QWidget* owner);

    /// The full path of the file, once the dialog has been accepted. For Open it is an existing file.
    [[nodiscard]] const std::string& Chosen() const { return chosen_; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    struct Entry {
        std::string name;
        bool folder;
    };

    void MakeWidgets(const std::string& filter);
    void GoTo(const std::filesystem::path& folder);
    void ListFolder();
    void ShowEntry(int row);
    [[nodiscard]] const Entry* EntryAt(int row) const;  ///< null for no row of an entry
    void PickRow(int row);
    void ActivateRow(int row);
    void MakeNewFolder();
    void TakeName();

    /// The path that the name box means.
    [[nodiscard]] std::filesystem::path NamedPath() const;

    Purpose purpose_;
    std::string pattern_;   ///< "*.fbl", or one name
    std::string proposal_;  ///< what the name box started with
    std::filesystem::path folder_;
    std::vector<Entry> entries_;  // row by row
    std::string chosen_;

    QComboBox* places_ = nullptr;                    // the folder and those above it, from the root; the other drives
    std::vector<std::filesystem::path> placePaths_;  // row by row
    QTreeWidget* list_ = nullptr;
    QLineEdit* name_ = nullptr;
};
