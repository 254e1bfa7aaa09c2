#pragma once

#include <QString>

class QLineEdit;

/// What a box for one line held before a change that the toolkit is about to make, by whatever way that comes. Tells
/// what has come into the text, and ends that at its first line end.
class LineBefore {
public:
    /// To be called when the box has settled: at the start, and whenever its text or its selection has changed.
    void Take(const QLineEdit& edit);

    [[nodiscard]] const QString& Text() const { return text_; }

    /// Cuts off of `after`, the text that the change would make, what has come in behind a line end. Moves `caret`, a
    /// position in `after` from 0, there. Gives what has come in and stays; empty if something was only taken out.
    QString KeepFirstLine(QString& after, int& caret) const;

private:
    QString text_;
    qsizetype selectionStart_ = 0;  // from 0
    qsizetype selectionLength_ = 0;
};

/// Lets only the first line of what comes into a box of the toolkit's own dialogs stay.
void KeepFirstLineIn(QLineEdit& edit);
