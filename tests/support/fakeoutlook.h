#pragma once

#include "platform/clock.h"
#include "platform/pocketoutlook.h"

#include <QtCore/QDateTime>
#include <QtCore/QMap>
#include <QtCore/QStringList>

/// An item of any kind.
struct FakeItem
{
    QString name; ///< a contact's FileAs, the others' subject
    platform::VariantDate start = platform::noDate;
    platform::VariantDate due = platform::noDate;
    bool isRecurring = false;
    bool isFetchable = true;
    int oid = 0;
    QMap<platform::ContactText, QString> texts{};
    QByteArray photo{};
};

/// A store that holds what a test puts into it, and writes down what it is asked. Restricting and sorting it
/// changes nothing.
class FakeOutlook : public platform::PocketOutlook
{
public:
    std::unique_ptr<platform::IPOutlookApp> createApplication() override;

    /// What was asked since the last call, in order.
    QStringList takeCalls();

    bool isThere = true;
    bool hasFolders = true;
    std::vector<FakeItem> appointments;
    std::vector<FakeItem> tasks;
    std::vector<FakeItem> contacts;
    std::optional<int> matchingCount; ///< what a restricted collection answers if not the number of items
    platform::WindowHandle window = 0; ///< given at Logon()
    QStringList calls;
};

/// Stands still; its texts are the device's own.
class FakeClock : public platform::Clock
{
public:
    explicit FakeClock(platform::Clock &texts)
        : m_texts(texts)
    {
    }

    platform::SystemTime localTime() override;
    std::optional<std::u16string> dateText(const platform::SystemTime &time, const std::u16string &picture,
                                           int capacity) override
    {
        return m_texts.dateText(time, picture, capacity);
    }
    std::optional<std::u16string> timeText(const platform::SystemTime &time, const std::u16string &picture,
                                           int capacity) override
    {
        return m_texts.timeText(time, picture, capacity);
    }

    QDateTime now;

private:
    platform::Clock &m_texts;
};
