#include "platform/TextArea.h"

#include <QPlainTextEdit>
#include <QTest>

#include "platform/Screen.h"
#include "tests/ScreenDriver.h"

namespace {

using namespace std::string_literals;

class TextAreaTest : public ScreenTest {
protected:
    void SetUp() override {
        ScreenTest::SetUp();
        screen_.Create("Desk", "Desk", 300, 200);
        Area.Create(screen_, "Area", {0, 0, 300, 200}, TextArea::Lines::Wrapped);
        Area.Change = [this] { ++Changes; };
        screen_.Show();
    }

    static QPlainTextEdit& Box() { return ControlOf<QPlainTextEdit>("Desk", "Area"); }

    static void TypeAndDeleteALetter() {
        QTest::keyClicks(&Box(), "q");
        QTest::keyClick(&Box(), Qt::Key_Backspace);
    }

    TextArea Area;
    int Changes = 0;

private:
    Screen screen_;
};

TEST_F(TextAreaTest, GivesBackEveryByte) {
    std::string allBytes;
    for (int byte = 0; byte < 256; ++byte) {
        allBytes += static_cast<char>(byte);
    }
    const std::string texts[] = {
        "",
        "one\r\ntwo\r\n",
        "no line end",
        "\r\n\r\n",
        "lone LF\nlone CR\rNUL\0end\r\n"s,
        "\r\r\n\n\r\n\n",
        "tab\t, form feed \f, vertical tab \v, escape \x1b, delete \x7f",
        "r\xE9sum\xE9 in Windows-1252\x80\x81\n\0"s,
        allBytes,
        "caf\u00E9, a no-break\u00A0blank, \U0001F427, \uFFFC",
        "breaks of their own \u2028 \u2029 \uFDD0 \uFDD1 \u0085",
        "symbols that were there \u240A\u240D\u2400\u00B6\uE000 beside \n \r \0 \u2029"s,
        "symbols alone \u240A\u240D\u2400\u2424\uFFFD",
        "\xEF\xBB\xBF"
        "a byte order mark",
    };
    for (const std::string& text : texts) {
        Area.SetText(text);
        EXPECT_EQ(Area.Text(), text);
        TypeAndDeleteALetter();
        EXPECT_EQ(Area.Text(), text);
    }
}

TEST_F(TextAreaTest, ShowsCrLfAsABreakAndOtherEndsAsSymbols) {
    Area.SetText("a\r\nb\nc\rd\0e"s);
    EXPECT_EQ(Box().toPlainText().toStdString(), "a\nb\u240Ac\u240Dd\u2400e");
}

TEST_F(TextAreaTest, WritesTypedLinesWithCrLf) {
    Area.SetText("end");
    QTest::keyClicks(&Box(), "a");
    QTest::keyClick(&Box(), Qt::Key_Return);
    QTest::keyClick(&Box(), Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(Area.Text(), "a\r\n\r\nend");
}

TEST_F(TextAreaTest, WritesBackInTheEncodingItWasFilledWith) {
    for (const auto& [filled, typed] : {std::pair{"\xE9", "\xFC\xE9"}, std::pair{"\u00E9", "\u00FC\u00E9"}}) {
        Area.SetText(filled);
        Box().insertPlainText(QStringLiteral("\u00FC"));
        EXPECT_EQ(Area.Text(), typed);
    }
}

TEST_F(TextAreaTest, RaisesChangeOnceForEachChange) {
    Area.SetText("text");
    EXPECT_EQ(Changes, 1);
    Area.SetText("text");
    EXPECT_EQ(Changes, 1);
    TypeAndDeleteALetter();
    EXPECT_EQ(Changes, 3);
    Area.Change = [] { throw Fault(FaultNumber::Overflow); };
    EXPECT_THROW(Area.SetText("other"), Fault);
    EXPECT_FALSE(dialogs.fatalFault);
    TypeAndDeleteALetter();
    EXPECT_EQ(dialogs.fatalFault, FaultNumber::Overflow);
}

}  // namespace
