#pragma once

#include "platform/desktop/filedescriptor.h"

#include <QtCore/QByteArray>
#include <QtCore/QObject>
#include <QtCore/QSocketNotifier>
#include <QtCore/QTimer>

#include <map>
#include <optional>
#include <sys/types.h>
#include <utility>
#include <vector>

struct inotify_event;

namespace platform {

/// Watches the names in a folder, which may be a link to one, and may be away and there again. GUI thread.
class FolderWatch : public QObject
{
    Q_OBJECT

public:
    explicit FolderWatch(const QByteArray &folder, QObject *parent = nullptr);

    /// What has happened in a folder.
    struct Changes
    {
        bool isAll = false; ///< anything may have changed, as the folder was not watched
        std::vector<QByteArray>
            names; ///< of entries that are new, changed or gone, in order, some repeatedly
    };

    /// What has happened since the last time, up to now. At first everything.
    Changes take();

    /// Whether there is something to take, as far as is known without looking.
    bool hasChanges() const { return m_isFolderDoubtful || m_changes.isAll || !m_changes.names.empty(); }

    /// Whether somebody still writes to a file, as of now. Unknown for one that nothing was told of, or only
    /// that it is there. What else happened is kept for take(), without a signal.
    enum class Writing { Unknown, GoesOn, HasEnded };
    Writing writing(const QByteArray &name);

    /// To be called for a file that nobody has written to for long: not every end of writing is told.
    void endWriting(const QByteArray &name);

signals:
    /// There may be something to take.
    void changed();

private:
    bool isWatching() const { return m_folderWatch >= 0; }
    void tell();
    void drain();
    void note(const inotify_event &event, const QByteArray &name);
    void checkFolder();
    void watchFolder();

    const QByteArray m_folder;
    const QByteArray m_parent;
    const QByteArray m_name;
    const FileDescriptor m_events;
    std::optional<QSocketNotifier> m_notifier; ///< goes before the descriptor is closed
    QTimer m_retry; ///< runs while the folder is not watched
    int m_parentWatch = -1;
    int m_folderWatch = -1;
    bool m_isFolderDoubtful = false;
    std::pair<dev_t, ino_t> m_watched;
    std::map<QByteArray, Writing> m_writing;
    Changes m_changes;
};

} // namespace platform
