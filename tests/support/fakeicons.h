#pragma once

#include "platform/icons.h"

#include <QtCore/QHash>
#include <QtCore/QStringList>

/// Icons of plain colours in made-up files: the large ones half-transparent red, the small ones blue.
class FakeIcons : public platform::Icons
{
public:
    /// In pixels a side; 0 is an icon that is missing.
    struct Sizes
    {
        int large = 0;
        int small = 0;
    };

    platform::ExtractedIcons extract(const std::u16string &file, int index) override
    {
        const QString location = QStringLiteral("%1,%2").arg(QString::fromStdU16String(file)).arg(index);
        asked.append(location);
        const auto found = icons.constFind(location);
        if (found == icons.cend())
            return {};
        return {2, make(found->large, 0x80ff0000), make(found->small, 0xff0000ff)};
    }
    int screenDensity() override { return density; }

    QHash<QString, Sizes> icons; ///< by "file,index"
    int density = 192;
    QStringList asked; ///< what was extracted, or looked for
    int handedOut = 0; ///< icons that have not been given back

private:
    class PlainIcon : public platform::Icon
    {
    public:
        PlainIcon(FakeIcons &owner, int size, std::uint32_t colour)
            : m_owner(owner)
            , m_size(size)
            , m_colour(colour)
        {
            ++m_owner.handedOut;
        }
        ~PlainIcon() override { --m_owner.handedOut; }

        platform::Picture picture() override
        {
            const auto pixels = static_cast<std::size_t>(m_size * m_size);
            return {m_size, m_size, std::vector<std::uint32_t>(pixels, m_colour)};
        }

    private:
        FakeIcons &m_owner;
        int m_size;
        std::uint32_t m_colour;
    };

    std::unique_ptr<platform::Icon> make(int size, std::uint32_t colour)
    {
        return size > 0 ? std::make_unique<PlainIcon>(*this, size, colour) : nullptr;
    }
};
