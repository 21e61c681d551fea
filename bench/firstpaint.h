#pragma once

#include "kestmainprovider/flicklist.h"

#include <QtCore/QEvent>
#include <QtCore/QTimer>
#include <QtWidgets/QApplication>

#include <functional>

/// Calls back once a FlickList with rows has been painted.
class FirstPaint : public QObject
{
public:
    explicit FirstPaint(std::function<void(QWidget *dialog)> painted)
        : m_painted(std::move(painted))
    {
        qApp->installEventFilter(this);
    }

    bool eventFilter(QObject *watched, QEvent *event) override
    {
        const auto *list =
            event->type() == QEvent::Paint ? qobject_cast<const FlickList *>(watched->parent()) : nullptr;
        if (list && list->itemCount() > 0 && !std::exchange(m_isDone, true))
            QTimer::singleShot(0, this, [this, dialog = list->window()] { m_painted(dialog); });
        return false;
    }

private:
    std::function<void(QWidget *)> m_painted;
    bool m_isDone = false;
};
