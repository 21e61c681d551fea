#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>

#include <functional>
#include <memory>
#include <vector>

namespace platform {

/// An item as a file holds it. It never changes: a file that is read again makes new ones.
class OutlookItem
{
public:
    explicit OutlookItem(const QString &uid)
        : m_uid(uid)
    {
    }
    virtual ~OutlookItem() = default;
    OutlookItem(const OutlookItem &) = delete;
    OutlookItem &operator=(const OutlookItem &) = delete;

    /// By which programs know it again wherever it goes (UID of RFC 5545 and RFC 6350). May be empty.
    QString uid() const { return m_uid; }

private:
    const QString m_uid;
};

/// What a file holds.
struct FileItems
{
    std::vector<std::shared_ptr<const OutlookItem>> items; ///< in the file's order; none is of another kind
    QString problem; ///< empty, or why the file or an item of it cannot be read, in plain words
};

/// Makes items of a file's content, whatever it holds. One without items of the kind is no problem.
using ItemReader = std::function<FileItems(const QByteArray &content)>;

} // namespace platform
