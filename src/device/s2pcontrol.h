#pragma once

#include <QtCore/QString>

/// The music player S2P, an application of its own: it takes commands through its window and publishes what
/// it plays in the registry.
class S2pControl
{
public:
    /// What S2P has published; texts are empty if it never ran.
    struct Status
    {
        bool isPlaying = false;
        QString title;
        QString album;
    };

    /// Sends "play", "pause", "next" or "prev"; any other text does nothing. The first two start S2P if it
    /// does not run. It is looked for among the device's programs, in its Windows folder, and in @p
    /// applicationPath; if there is none, the user is told. GUI thread only.
    void command(const QString &text, const QString &applicationPath);

    /// What S2P has published so far. Values that are missing or of another size count as never published.
    static Status status();

private:
    void start(const QString &applicationPath);

    QString m_program; ///< where S2P was found, empty before
};
