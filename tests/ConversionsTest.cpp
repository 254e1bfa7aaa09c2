#include "platform/Conversions.h"

#include <gtest/gtest.h>

#include <optional>

#include "platform/Texts.h"

namespace {

/// The number of the fault that `work` raises, if it does.
template <typename Work>
std::optional<FaultNumber> FaultOf(Work work) {
    try {
        work();
    } catch (const Fault& fault) {
        return fault.Number();
    }
    return std::nullopt;
}

TEST(Int16Test, ArithmeticFaultsInsteadOfWrapping) {
    const Int16 large = 32767;
    EXPECT_EQ(FaultOf([&] { return large + 1; }), FaultNumber::Overflow);
    EXPECT_EQ(FaultOf([&] { return Int16(-32768) - 1; }), FaultNumber::Overflow);
    EXPECT_EQ(FaultOf([&] { return Int16(1024) * 32; }), FaultNumber::Overflow);
    // Also where the end of the expression would fit again.
    EXPECT_EQ(FaultOf([&] { return Int16(1024) * 32 - 1; }), FaultNumber::Overflow);
    EXPECT_EQ(Int16(1023) * 32 + 31, 32767);
}

TEST(ConversionsTest, TextToInt16) {
    const std::pair<const char*, int> good[] = {{"0", 0},   {" 12 ", 12},       {"-32768", -32768}, {"+7", 7},
                                                {"2.5", 2}, {"3.5", 4},         {"-2.5", -2},       {"1E3", 1000},
                                                {".5", 0},  {"32767.4", 32767}, {"1.5e1", 15},      {"1E-400", 0}};
    for (const auto& [text, number] : good) {
        EXPECT_EQ(TextToInt16(text), number) << text;
    }
    for (const char* text : {"", " ", "-", "x", "1x", "1 2", ".", "1.2.3", "E3", "0x10", "1E", "\t1"}) {
        EXPECT_EQ(FaultOf([&] { return TextToInt16(text); }), FaultNumber::TypeMismatch) << text;
    }
    for (const char* text : {"32768", "-32769", "32767.5", "1E9", "1E999"}) {
        EXPECT_EQ(FaultOf([&] { return TextToInt16(text); }), FaultNumber::Overflow) << text;
    }
}

TEST(ConversionsTest, TextToDoubleAndLeadingNumber) {
    EXPECT_EQ(TextToDouble("10."), 10.0);
    EXPECT_EQ(TextToDouble(".5"), 0.5);
    EXPECT_EQ(TextToDouble("-1.25E2"), -125.0);
    for (const std::string& text : {std::string("."), std::string(""), std::string("1,5"), std::string(400, '9')}) {
        EXPECT_EQ(FaultOf([&] { return TextToDouble(text); }), FaultNumber::TypeMismatch) << text;
    }
    EXPECT_EQ(LeadingNumber("120 tiles"), 120.0);
    EXPECT_EQ(LeadingNumber("  1 2x3"), 12.0);
    EXPECT_EQ(LeadingNumber("tiles"), 0.0);
    EXPECT_EQ(LeadingNumber(""), 0.0);
}

TEST(ConversionsTest, NumbersToTexts) {
    EXPECT_EQ(DoubleToText(8.0), "8");
    EXPECT_EQ(DoubleToText(0.5), "0.5");
    EXPECT_EQ(DoubleToText(0.1), "0.1");
    EXPECT_EQ(DoubleToText(1E20), "1E+20");
    EXPECT_EQ(DoubleToText(1.0 / 3.0), "0.333333333333333");
    EXPECT_EQ(DoubleToText(123456789012345.0), "123456789012345");
    EXPECT_EQ(DoubleToText(-0.0), "0");
    EXPECT_EQ(SingleToText(32.0F + 1.0F / 15.0F), "32.06667");
    EXPECT_EQ(SingleToText(32736.0F), "32736");
}

TEST(TextsTest, TrimTakesBlanksOnly) {
    EXPECT_EQ(Trim("  a b\t "), "a b\t");
    EXPECT_EQ(Trim("   "), "");
    EXPECT_TRUE(IsBlank(" "));
    EXPECT_FALSE(IsBlank("\t"));
    EXPECT_EQ(UpperCase("a\xE9z"), "A\xE9Z");
    EXPECT_EQ(CharAt("ab", 2), 'b');
    EXPECT_EQ(CharAt("ab", 3), Beyond);
    EXPECT_EQ(CharAt("ab", 0), Beyond);
}

TEST(FaultTest, MessageNamesNumberAndWords) {
    EXPECT_EQ(FaultMessage(Fault(FaultNumber::Overflow)), "Run-time error '6':\n\nOverflow");
    EXPECT_EQ(FaultMessage(Fault(FaultNumber::SubscriptOutOfRange)), "Run-time error '9':\n\nSubscript out of range");
}

}  // namespace
