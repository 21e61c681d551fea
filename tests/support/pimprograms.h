#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

/// The machine's time zone for as long as this lives.
class TimeZoneScope
{
public:
    explicit TimeZoneScope(const QByteArray &zone);
    ~TimeZoneScope();

private:
    const QByteArray m_before;
};

/// khal, todoman, khard and vdirsyncer with settings of their own, on folders of their own.
class PimPrograms
{
public:
    /// They run in the machine's time zone.
    PimPrograms();

    /// The files of "calendar", "tasks" or "contacts".
    QString folder(const QString &kind) const { return m_home.filePath(kind); }

    /// Fills the folder with the sample files of its kind.
    void copySamples(const QString &kind) const;

    /// What the program puts out; its failure is the test's. It reads @p input.
    QString run(const QString &program, const QStringList &arguments, const QByteArray &input = {}) const;
    QStringList runForLines(const QString &program, const QStringList &arguments) const;

    /// The content of the only file of the kind that is no sample.
    static QByteArray onlyFile(const QString &folder);

    static QString sampleFolder(const QString &kind);

private:
    void write(const QString &name, const QString &text) const;

    QTemporaryDir m_home;
};
