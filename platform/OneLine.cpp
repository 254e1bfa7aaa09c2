#include "platform/OneLine.h"

#include <QLineEdit>
#include <QValidator>
#include <algorithm>

namespace {

class OneLineRule : public QValidator {
public:
    explicit OneLineRule(QLineEdit& edit) : QValidator(&edit) {
        const auto take = [this, &edit] { before_.Take(edit); };
        take();
        connect(&edit, &QLineEdit::textChanged, this, take);
        connect(&edit, &QLineEdit::selectionChanged, this, take);
    }

    State validate(QString& text, int& caret) const override {
        before_.KeepFirstLine(text, caret);
        return Acceptable;
    }

private:
    LineBefore before_;
};

}  // namespace

void LineBefore::Take(const QLineEdit& edit) {
    text_ = edit.text();
    selectionStart_ = std::max(edit.selectionStart(), 0);
    selectionLength_ = edit.selectionLength();
}

// What replaces a selection stands between the same neighbours. Without one, the texts tell by their differences.
QString LineBefore::KeepFirstLine(QString& after, int& caret) const {
    qsizetype start = selectionStart_;
    qsizetype behind = text_.size() - selectionStart_ - selectionLength_;
    if (selectionLength_ == 0 || after.size() < start + behind || after.left(start) != text_.left(start) ||
        after.right(behind) != text_.right(behind)) {
        start = std::mismatch(text_.begin(), text_.end(), after.cbegin(), after.cend()).first - text_.begin();
        const qsizetype most = std::min(text_.size(), after.size()) - start;
        behind = std::mismatch(text_.rbegin(), text_.rbegin() + most, after.crbegin()).first - text_.rbegin();
    }
    QString added = after.mid(start, after.size() - start - behind);
    const auto end = std::find_if(added.cbegin(), added.cend(), [](QChar c) { return c == u'\n' || c == u'\r'; });
    if (end != added.cend()) {
        const qsizetype kept = end - added.cbegin();
        after.remove(start + kept, added.size() - kept);
        added.truncate(kept);
        caret = static_cast<int>(start + kept);
    }
    return added;
}

void KeepFirstLineIn(QLineEdit& edit) { edit.setValidator(new OneLineRule(edit)); }
