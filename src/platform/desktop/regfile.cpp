#include "platform/desktop/regfile.h"

#include <algorithm>

namespace platform {

namespace {

RegistryKeyPath below(const RegistryKeyPath &key, const QString &name)
{
    return {key.root, key.path.isEmpty() ? name : key.path + QLatin1Char('\\') + name};
}

bool addEdits(RegistryStore &store, const RegistryKeyPath &path, QList<RegistryEdit> &edits)
{
    const auto key = store.find(path.root, path.path);
    if (!key)
        return false;
    edits.append({RegistryEdit::Action::MakeKey, path, {}});
    const QList<RegistryValue> values = store.values(*key);
    if (!store.problem().isEmpty())
        return false;
    for (const RegistryValue &value : values)
        edits.append({RegistryEdit::Action::SetValue, path, value});
    const QStringList names = store.subkeys(*key);
    return store.problem().isEmpty() && std::all_of(names.cbegin(), names.cend(), [&](const QString &name) {
               return addEdits(store, below(path, name), edits);
           });
}

bool applyEdit(RegistryStore &store, const RegistryEdit &edit)
{
    using Action = RegistryEdit::Action;
    const bool isRemoval = edit.action == Action::RemoveKey || edit.action == Action::RemoveValue;
    const auto key =
        isRemoval ? store.find(edit.key.root, edit.key.path) : store.findOrMake(edit.key.root, edit.key.path);
    if (!key)
        return isRemoval && store.problem().isEmpty();
    switch (edit.action) {
    case Action::MakeKey:
        return true;
    case Action::RemoveKey:
        return store.removeKey(*key);
    case Action::SetValue:
        return store.setValue(*key, edit.value);
    case Action::RemoveValue:
        return store.removeValue(*key, edit.value.name) || store.problem().isEmpty();
    }
    return false;
}

} // namespace

RegistryKeyPath storedSpelling(RegistryStore &store, const RegistryKeyPath &key)
{
    RegistryKeyPath spelled{key.root, QString()};
    const QStringList names = key.path.split(QLatin1Char('\\'), Qt::SkipEmptyParts);
    for (const QString &name : names) {
        const auto parent = store.find(spelled.root, spelled.path);
        const QStringList subkeys = parent ? store.subkeys(*parent) : QStringList();
        const QByteArray wanted = RegistryStore::comparableName(name);
        const auto found = std::find_if(subkeys.cbegin(), subkeys.cend(), [&wanted](const QString &subkey) {
            return RegistryStore::comparableName(subkey) == wanted;
        });
        spelled = below(spelled, found == subkeys.cend() ? name : *found);
    }
    return spelled;
}

std::optional<QList<RegistryEdit>> exportKey(RegistryStore &store, const RegistryKeyPath &key)
{
    QList<RegistryEdit> edits;
    const bool isDone = store.inSnapshot([&] { return addEdits(store, storedSpelling(store, key), edits); });
    return isDone ? std::make_optional(edits) : std::nullopt;
}

bool applyEdits(RegistryStore &store, const QList<RegistryEdit> &edits)
{
    return store.inTransaction([&] {
        return std::all_of(edits.cbegin(), edits.cend(),
                           [&store](const RegistryEdit &edit) { return applyEdit(store, edit); });
    });
}

} // namespace platform
