#include "flicklistmodel.h"

FlickListModel::FlickListModel(QObject *parent)
    : QAbstractListModel(parent)
{
}

FlickListModel::~FlickListModel() = default;

void FlickListModel::beginFilling()
{
    beginResetModel();
    m_isFilling = true;
}

void FlickListModel::endFilling()
{
    m_isFilling = false;
    endResetModel();
}

bool FlickListModel::isFilling() const
{
    return m_isFilling;
}

void FlickListModel::insert(int row, std::unique_ptr<IFlickListItem> item)
{
    if (m_isFilling) {
        m_items.insert(m_items.begin() + row, std::move(item));
        return;
    }
    beginInsertRows(QModelIndex(), row, row);
    m_items.insert(m_items.begin() + row, std::move(item));
    endInsertRows();
}

std::unique_ptr<IFlickListItem> FlickListModel::take(int row)
{
    if (!m_isFilling)
        beginRemoveRows(QModelIndex(), row, row);
    std::unique_ptr<IFlickListItem> item = std::move(m_items[static_cast<std::size_t>(row)]);
    m_items.erase(m_items.begin() + row);
    if (!m_isFilling)
        endRemoveRows();
    return item;
}

void FlickListModel::clear()
{
    if (m_isFilling) {
        m_items.clear();
        return;
    }
    beginResetModel();
    m_items.clear();
    endResetModel();
}

int FlickListModel::count() const
{
    return static_cast<int>(m_items.size());
}

IFlickListItem *FlickListModel::item(int row) const
{
    return row >= 0 && row < count() ? m_items[static_cast<std::size_t>(row)].get() : nullptr;
}

int FlickListModel::rowCount(const QModelIndex &parent) const
{
    return parent.isValid() || m_isFilling ? 0 : count();
}

QVariant FlickListModel::data(const QModelIndex &index, int role) const
{
    const IFlickListItem *row = role == Qt::DisplayRole ? item(index.row()) : nullptr;
    return row ? row->text() : QVariant();
}
