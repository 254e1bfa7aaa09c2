#include "platform/FileDialog.h"

#include <QLineEdit>
#include <QTest>
#include <QTreeWidget>

#include "tests/ScreenDriver.h"

// The dialog for files: names are bytes, whatever is shown.

namespace {

using FileDialogTest = ScreenTest;

TEST_F(FileDialogTest, GivesTheBytesOfWhatIsNamed) {
    std::filesystem::create_directories(folder / "caf\xE9");
    for (const char* name : {"a.fbl", "B.FBL", "d\xE9.fbl", "note.txt", "caf\xE9/in.fbl"}) {
        Store(name, "");
    }
    const std::string start = Store("a.fbl", "");  // a file's path starts in its folder
    using enum FileDialog::Purpose;
    const struct {
        FileDialog::Purpose purpose;
        std::string proposal;
        std::string typed;   ///< nothing: Return on the proposal
        std::string chosen;  ///< below the folder; nothing where the dialog stays
    } cases[] = {
        {Open, "", "a.fbl", "a.fbl"},
        {Open, "", PathOf("B.FBL"), "B.FBL"},
        {Open, "", "d\u00E9.fbl", "d\xE9.fbl"},
        {Open, "", "caf\u00E9/in.fbl", "caf\xE9/in.fbl"},
        {Open, "", "caf\u00E9", ""},
        {Open, "", "none.fbl", ""},
        {Open, "a.fbl", "", "a.fbl"},
        {Save, PathOf("d\xE9.fbl"), "", "d\xE9.fbl"},
        {Save, PathOf("d\xE9.fbl"), "new \u00E9.fbl\nmore", "new \u00E9.fbl"},
        {Save, "", "caf\u00E9/../x", "x"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.proposal + "|" + c.typed);
        FileDialog dialog({"*.fbl|*.fbl", start, c.proposal}, c.purpose, nullptr);
        dialog.show();
        auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
        if (!c.typed.empty()) {
            name->selectAll();
            name->insert(QString::fromStdString(c.typed));
        }
        QTest::keyClick(name, Qt::Key_Return);
        EXPECT_EQ(dialog.result() == QDialog::Accepted, !c.chosen.empty());
        EXPECT_EQ(dialog.Chosen(), c.chosen.empty() ? "" : PathOf(c.chosen));
    }
    // The list by keys: Enter goes into a folder, and leaves the name that is proposed alone.
    FileDialog dialog({"*.fbl|*.fbl", start, PathOf("a.fbl")}, Open, nullptr);
    dialog.show();
    auto* list = dialog.findChild<QTreeWidget*>();
    const auto names = [&] {
        Texts shown;
        for (int row = 0; row < list->topLevelItemCount(); ++row) {
            shown.push_back(list->topLevelItem(row)->text(0).toStdString());
        }
        return shown;
    };
    EXPECT_EQ(names(), (Texts{"caf\u00E9", "a.fbl", "B.FBL", "d\u00E9.fbl"}));
    list->setCurrentItem(list->topLevelItem(0));
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(names(), Texts{"in.fbl"});
    QTest::keyClick(list, Qt::Key_Backspace);
    list->setCurrentItem(list->topLevelItem(3));
    QTest::keyClick(list, Qt::Key_Return);
    EXPECT_EQ(dialog.Chosen(), PathOf("d\xE9.fbl"));
}

}  // namespace
