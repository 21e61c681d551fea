#include "platform/windows/outlook/outlookfolder.h"

#include "platform/windows/outlook/outlookitems.h"

namespace platform {

namespace {

using Items = ComPointer<pimstore::IPOutlookItemCollection>;

class WindowsItemCollection : public IPOutlookItemCollection
{
public:
    WindowsItemCollection(OutlookSessionPointer session, Items items)
        : m_session(std::move(session))
        , m_items(std::move(items))
    {
    }

    std::optional<int> get_Count() override
    {
        return valueOf(*m_items, &pimstore::IPOutlookItemCollection::get_Count);
    }

    std::unique_ptr<IPOutlookItem> Item(int index) override
    {
        if (index < 1)
            return nullptr;
        return makeItem(m_session,
                        obtain<IDispatch>([&](IDispatch **item) { return m_items->Item(index, item); }));
    }

    std::unique_ptr<IPOutlookItemCollection> Restrict(const std::u16string &restriction) override;

    bool Sort(const std::u16string &property, bool descending) override
    {
        const ComText name = comText(property);
        return name && SUCCEEDED(m_items->Sort(name.get(), toVariant(descending)));
    }

    bool put_IncludeRecurrences(bool include) override
    {
        return SUCCEEDED(m_items->put_IncludeRecurrences(toVariant(include)));
    }

private:
    static VARIANT_BOOL toVariant(bool value) { return value ? VARIANT_TRUE : VARIANT_FALSE; }

    const OutlookSessionPointer m_session; // first, so that it goes last
    const Items m_items;
};

template <typename Give>
std::unique_ptr<IPOutlookItemCollection> makeCollection(const OutlookSessionPointer &session, Give give)
{
    Items items = obtain<pimstore::IPOutlookItemCollection>(give);
    return items ? std::make_unique<WindowsItemCollection>(session, std::move(items)) : nullptr;
}

std::unique_ptr<IPOutlookItemCollection> WindowsItemCollection::Restrict(const std::u16string &restriction)
{
    const ComText text = comText(restriction);
    return makeCollection(m_session, [&](pimstore::IPOutlookItemCollection **items) {
        return text ? m_items->Restrict(text.get(), items) : E_OUTOFMEMORY;
    });
}

} // namespace

WindowsFolder::WindowsFolder(OutlookSessionPointer session, ComPointer<pimstore::IFolder> folder)
    : m_session(std::move(session))
    , m_folder(std::move(folder))
{
}

std::unique_ptr<IPOutlookItemCollection> WindowsFolder::get_Items()
{
    return makeCollection(
        m_session, [this](pimstore::IPOutlookItemCollection **items) { return m_folder->get_Items(items); });
}

std::unique_ptr<IItem> WindowsFolder::QueryItem()
{
    return makeFolderBundle(m_session, *m_folder);
}

} // namespace platform
