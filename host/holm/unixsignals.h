#pragma once

#include <QtCore/QObject>

/// Turns SIGINT and SIGTERM into a Qt signal, for as long as it lives. One at a time.
///
/// A process that is too busy to come to it ends by itself a moment later, with 128 and the number.
class UnixSignals : public QObject
{
    Q_OBJECT

public:
    explicit UnixSignals(QObject *parent = nullptr);
    ~UnixSignals() override;

signals:
    void received(int number);

private:
    void read();

    int m_pipe[2] = {-1, -1};
};
