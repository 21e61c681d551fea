#include "fuzz/target.h"

#include <registry/registrypath.h>

#include <QtCore/QStringList>

void tryInput(const QByteArray &input)
{
    const QString text = QString::fromUtf8(input.constData(), input.size());
    const QStringList parts = text.split(QLatin1Char('\\'));
    const RegistryPath path = RegistryPath::split(text);
    require(path.root == parts.first(), "the root is what stands before the first backslash");
    require(path.value == parts.last(), "the value is what stands behind the last backslash");
    require(path.key == parts.mid(1, parts.size() - 2).join(QLatin1Char('\\')) || parts.size() == 1,
            "the key is what stands between");
    require(parts.size() > 1 || path.key.isEmpty(), "without a backslash there is no key");
    registryRoot(path.root);
}
