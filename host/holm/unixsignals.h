#pragma once

#include <QtCore/QObject>

#include <csignal>
#include <utility>
#include <vector>

/// Turns SIGINT, SIGTERM and SIGHUP into a Qt signal, for as long as it lives; those that are ignored, as
/// nohup(1) has it, stay so. One at a time.
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
    void handle(int number, void (*handler)(int));
    void read();

    std::vector<std::pair<int, struct sigaction>> m_before; ///< what was done at which signal
    int m_pipe[2] = {-1, -1};
};
