#pragma once

#include <QtWidgets/QLineEdit>

/// A line edit of a native dialog: tells the host while it has the input focus.
class KestLineEdit : public QLineEdit
{
    Q_OBJECT

public:
    using QLineEdit::QLineEdit;

protected:
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
};
