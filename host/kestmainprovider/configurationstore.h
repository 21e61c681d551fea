#pragma once

#include "kestmainprovider_global.h"

#include <QtCore/QFileSystemWatcher>
#include <QtCore/QMap>
#include <QtCore/QObject>
#include <QtCore/QTimer>
#include <QtCore/QVariant>

#include <functional>

/// Values by section and key, kept in one file that people can read and edit (see ConfigurationFile).
///
/// A write is on disk when the call returns: the file is replaced as a whole, so that a crash at
/// any moment leaves the old or the new one. Several processes may use one file. Texts stand in it
/// as they are, other types with a mark in front: "number:2.5", "int:3", "bool:true"; a value
/// that somebody writes there without a mark is a text.
class KESTMAINPROVIDER_EXPORT ConfigurationStore : public QObject
{
    Q_OBJECT

public:
    /// Opens @p file, which need not exist; its folder must.
    explicit ConfigurationStore(const QString &file, QObject *parent = nullptr);
    ~ConfigurationStore() override;

    /// The stored value (QString, double, int or bool), or @p defaultValue.
    QVariant value(const QString &section, const QString &key, const QVariant &defaultValue) const;

    /// Returns false, and warns on standard error, if the file could not be written.
    bool setValue(const QString &section, const QString &key, const QVariant &value);

    /// Removes one value, or with an empty @p key the whole section. Returns as setValue() does.
    bool remove(const QString &section, const QString &key);

signals:
    /// From the event loop, once for any number of changes, by whatever process they were made.
    void changed();

private:
    bool change(const std::function<void()> &apply);
    bool read();
    bool write() const;
    void watchFile();
    void reload();
    void keepDamagedFile(const QByteArray &bytes) const;

    const QString m_file;
    QMap<QString, QString> m_values;
    QMap<QString, QString> m_announced;
    QFileSystemWatcher m_watcher;
    QTimer m_reload;
};
