#pragma once

#include "platform/desktop/desktophiddenwindows.h"
#include "platform/desktop/outlook/desktopoutlook.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTemporaryDir>
#include <gmock/gmock.h>

/// A device in a temporary folder whose items a test writes.
class OutlookDevice
{
public:
    QString path(const QString &file) const { return m_dir.filePath(file); }

    void write(const QString &name, const QByteArray &content) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QFile file(path(name));
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        EXPECT_EQ(file.write(content), content.size());
    }

    static QByteArray calendar(const QByteArray &components)
    {
        return "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nPRODID:-//tests//EN\r\n" + components + "END:VCALENDAR\r\n";
    }

    /// @p lines end with line breaks; "DTSTART:20091117T090000\r\n" if there are none.
    static QByteArray event(const QByteArray &uid, const QByteArray &subject,
                            const QByteArray &lines = QByteArray())
    {
        return "BEGIN:VEVENT\r\nDTSTAMP:20090101T000000Z\r\nUID:" + uid + "\r\nSUMMARY:" + subject + "\r\n"
            + (lines.isEmpty() ? "DTSTART:20091117T090000\r\n" : lines) + "END:VEVENT\r\n";
    }

    void writeEvent(const QByteArray &name, const QByteArray &lines = QByteArray()) const
    {
        write(QStringLiteral("calendar/") + QString::fromLatin1(name) + QStringLiteral(".ics"),
              calendar(event(name, name, lines)));
    }

    std::unique_ptr<platform::IPOutlookApp> connect() { return m_outlook.createApplication(); }
    platform::DesktopHiddenWindows &windows() { return m_windows; }

private:
    QTemporaryDir m_dir;
    platform::DesktopHiddenWindows m_windows;
    platform::DesktopOutlook m_outlook{platform::DeviceFolder(m_dir.path()), m_windows};
};

inline QString toText(const std::optional<std::u16string> &text)
{
    return text ? QString::fromStdU16String(*text) : QStringLiteral("nothing");
}

/// The names of all items that a collection has, "none" if there is no collection.
inline QString namesIn(platform::IPOutlookItemCollection *items)
{
    if (!items)
        return QStringLiteral("none");
    QStringList names;
    for (int i = 1; const auto item = items->Item(i); ++i) {
        if (auto *appointment = dynamic_cast<platform::IAppointment *>(item.get()))
            names.append(toText(appointment->get_Subject()));
        else if (auto *task = dynamic_cast<platform::ITask *>(item.get()))
            names.append(toText(task->get_Subject()));
        else if (auto *contact = dynamic_cast<platform::IContact *>(item.get()))
            names.append(toText(contact->get_Text(platform::ContactText::FileAs)));
    }
    EXPECT_EQ(items->get_Count(), names.size());
    return names.join(QLatin1Char(' '));
}

inline QString namesIn(platform::IPOutlookApp &connection, platform::OutlookFolder folder)
{
    return namesIn(connection.GetDefaultFolder(folder)->get_Items().get());
}
