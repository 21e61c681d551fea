#include "pimcommand.h"

#include "commandoptions.h"
#include "exitstatus.h"
#include "itemdirectory.h"

#include <platform/desktop/outlook/appointment.h>
#include <platform/desktop/outlook/contact.h>
#include <platform/desktop/outlook/itemsplitter.h>
#include <platform/desktop/outlook/task.h>
#include <platform/desktop/terminaltext.h>

#include <QtCore/QFile>

#include <algorithm>
#include <cstdio>
#include <iostream>
#include <limits>

namespace {

using platform::OutlookFolder;
using platform::SplitFile;
using platform::SplitItem;

const DeviceCommand &command()
{
    static const DeviceCommand description{
        QStringLiteral("pim"),
        QStringLiteral(
            "Usage: holm pim [--device DIR] import FILE...\n"
            "\n"
            "Takes appointments, tasks and contacts into the simulated handheld, from iCalendar\n"
            "files (.ics) and vCard files (.vcf). Each item becomes a file in the folder calendar,\n"
            "tasks or contacts of the device, and takes the place of one with the same UID; changes to\n"
            "single occurrences are added to their series. A FILE that makes no sense is left out as a\n"
            "whole; the others are taken in all the same. \"-\" stands for standard input.\n"
            "\n"
            "The status is 0, 1 if a FILE could not be taken in, or 2 for a wrong command line.\n"
            "\n"),
        std::numeric_limits<int>::max()};
    return description;
}

/// A kind of items, and the folder for them.
struct Kind
{
    OutlookFolder folder;
    const char *name; ///< of the folder
    const char *ending;
    platform::FileItems (*read)(const QByteArray &content);
    const char *word; ///< for one of them
};

const Kind kinds[] = {
    {OutlookFolder::Calendar, "calendar", ".ics", platform::readAppointments, "appointment"},
    {OutlookFolder::Tasks, "tasks", ".ics", platform::readTasks, "task"},
    {OutlookFolder::Contacts, "contacts", ".vcf", platform::readContacts, "contact"},
};

QString counted(int count, const char *word)
{
    return QString::number(count) + QLatin1Char(' ') + QLatin1String(word)
        + QLatin1String(count == 1 ? "" : "s");
}

/// Takes files into a device, and counts what came of it.
class Import
{
public:
    explicit Import(const platform::DeviceFolder &device)
    {
        for (const Kind &kind : kinds) {
            m_targets.push_back({kind,
                                 ItemDirectory(device.path() + QLatin1Char('/') + QLatin1String(kind.name),
                                               kind.folder, kind.ending)});
        }
    }

    /// What went wrong in plain words, or an empty text.
    QString takeIn(const QString &name)
    {
        constexpr qint64 largestFile = 0x20000000;
        QFile file(name);
        QByteArray bytes;
        const bool isOpen = name == QLatin1String("-") ? file.open(stdin, QIODevice::ReadOnly)
                                                       : file.open(QIODevice::ReadOnly);
        if (isOpen)
            bytes = file.read(largestFile + 1);
        if (file.error() != QFile::NoError)
            return QLatin1String("the file cannot be read: ") + file.errorString();
        if (bytes.size() > largestFile)
            return QStringLiteral("the file is larger than 512 MB");
        SplitFile content = platform::splitItems(bytes);
        return content.problem.isEmpty() ? takeIn(content) : content.problem;
    }

    QString summary() const
    {
        QStringList parts;
        for (const Target &target : m_targets) {
            if (target.count > 0)
                parts.append(counted(target.count, target.kind.word));
        }
        const QString last = parts.isEmpty() ? QStringLiteral("nothing") : parts.takeLast();
        const QString rest = parts.join(QLatin1String(", "));
        return QLatin1String("Imported ") + rest + QLatin1String(rest.isEmpty() ? "" : " and ") + last
            + (m_leftOut > 0 ? QLatin1String("; left out ") + counted(m_leftOut, "item")
                       + QLatin1String(" of other kinds.")
                             : QStringLiteral("."));
    }

private:
    struct Target
    {
        const Kind &kind;
        ItemDirectory directory;
        int count = 0;
    };

    QString takeIn(SplitFile &content)
    {
        for (SplitItem &item : content.items) {
            const QString problem = prepare(item);
            if (!problem.isEmpty()) {
                constexpr int shownLength = 60;
                return QLatin1String("item ") + inQuotes(QString::fromUtf8(item.uid).left(shownLength))
                    + QLatin1String(": ") + problem;
            }
        }
        for (const SplitItem &item : content.items) {
            Target &target = targetFor(item);
            QString problem = target.directory.write(item);
            if (!problem.isEmpty())
                return problem;
            ++target.count;
        }
        m_leftOut += content.leftOut;
        return QString();
    }

    /// Why the item cannot be taken in, in plain words, or an empty text.
    QString prepare(SplitItem &item)
    {
        Target &target = targetFor(item);
        QString problem = target.directory.prepare(item);
        if (!problem.isEmpty())
            return problem;
        const platform::FileItems read = target.kind.read(item.content);
        if (!read.items.empty())
            return QString();
        return read.problem.isEmpty() ? QStringLiteral("it cannot be read") : read.problem;
    }

    Target &targetFor(const SplitItem &item)
    {
        return *std::find_if(m_targets.begin(), m_targets.end(),
                             [&item](const Target &target) { return target.kind.folder == item.folder; });
    }

    std::vector<Target> m_targets;
    int m_leftOut = 0;
};

int import(const CommandOptions &options)
{
    const QStringList files = options.arguments.mid(1);
    if (files.isEmpty())
        return tellMisuse(command(), QStringLiteral("import takes FILE..."));
    Import import(options.device);
    int status = ExitStatus::ok;
    for (const QString &file : files) {
        const QString problem = import.takeIn(file);
        if (!problem.isEmpty())
            status = tellFailure(platform::onOneLine(file + QLatin1String(": ") + problem));
    }
    std::cout << import.summary().toStdString() << std::endl;
    return status;
}

int execute(const CommandOptions &options)
{
    const QString action = options.arguments.value(0);
    if (action.isEmpty())
        return tellMisuse(command(), QStringLiteral("no action given"));
    if (action != QLatin1String("import"))
        return tellMisuse(command(), QLatin1String("there is no action ") + inQuotes(action));
    return import(options);
}

} // namespace

int pimCommand(const QStringList &commandLine)
{
    return runDeviceCommand(command(), commandLine, execute);
}
