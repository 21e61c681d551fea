#pragma once

#include <QtCore/QString>
#include <QtWidgets/QWidget>

#include <memory>

/// A widget's window, or why there is none.
struct WidgetForm
{
    std::unique_ptr<QWidget> window;
    QString error;
};

/// Makes the window that a Qt Designer file describes; KestImage is known besides Qt's own classes.
WidgetForm loadWidgetForm(const QString &uiFile);
