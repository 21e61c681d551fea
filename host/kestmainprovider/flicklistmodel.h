#pragma once

#include "iflicklistitem.h"

#include <QtCore/QAbstractListModel>

#include <memory>
#include <vector>

/// The rows of a FlickList, for the view below it.
class FlickListModel : public QAbstractListModel
{
    Q_OBJECT

public:
    explicit FlickListModel(QObject *parent = nullptr);
    ~FlickListModel() override;

    /// Between the two the view sees no rows; the second tells it of all.
    void beginFilling();
    void endFilling();
    bool isFilling() const;

    void insert(int row, std::unique_ptr<IFlickListItem> item);
    std::unique_ptr<IFlickListItem> take(int row);
    void clear();

    int count() const;

    /// Null if there is no such row.
    IFlickListItem *item(int row) const;

    int rowCount(const QModelIndex &parent = QModelIndex()) const override;
    QVariant data(const QModelIndex &index, int role) const override;

private:
    std::vector<std::unique_ptr<IFlickListItem>> m_items;
    bool m_isFilling = false;
};
