#include "dialogs/customimage.h"
#include "dialogs/imagefile.h"
#include "orvanecore/functionarguments.h"
#include "pim/arguments.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QBuffer>
#include <QtCore/QMutexLocker>

namespace {

/// Null if there is no such contact, or if it has no photo.
QImage photoOf(platform::IPOutlookApp &outlook, int oid)
{
    const auto contact = outlook.GetItemFromOid(oid);
    const auto item = contact ? contact->QueryItem() : nullptr;
    const auto photo = item ? item->OpenProperty(platform::OutlookStream::Picture) : std::nullopt;
    if (!photo)
        return QImage();
    QByteArray bytes(reinterpret_cast<const char *>(photo->data()), static_cast<int>(photo->size()));
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    return readImage(buffer);
}

/// How large the picture is to be, by the arguments behind the first five.
class WantedSize
{
public:
    explicit WantedSize(const FunctionArguments &arguments)
        : m_isGiven(arguments.argumentCount() == 7)
        , m_width(m_isGiven ? arguments.argument(5).toInt32() : 0)
        , m_height(m_isGiven ? arguments.argument(6).toInt32() : 0)
    {
    }

    /// A size with a 0 in it is none.
    QImage exactly(const QImage &image) const
    {
        return m_isGiven ? scaledTo(image, m_width, m_height) : image;
    }

    /// Keeps the picture's own width or height where 0 is wanted.
    QImage withoutZeros(const QImage &image) const
    {
        return scaledTo(image, m_width == 0 ? image.width() : m_width,
                        m_height == 0 ? image.height() : m_height);
    }

private:
    bool m_isGiven;
    int m_width;
    int m_height;
};

} // namespace

void KestCommandProvider::contactImage(FunctionArguments *arguments)
{
    const bool isValid = arguments->argumentCount() != 6
        && argumentsMatch(*arguments,
                          {5,
                           7,
                           {ArgumentType::Object, ArgumentType::Function, ArgumentType::Number,
                            ArgumentType::String, ArgumentType::Bool}});
    if (!checkOutlookCall("contactImage", isValid))
        return;
    const QString destination = resolvedPath(arguments->argument(3).toString());
    const WantedSize size(*arguments);

    QMutexLocker lock(&m_poomMutex);
    bool isSaved = false;
    if (arguments->argument(4).toBool())
        isSaved = saveImage(size.exactly(askForCustomImage(*m_application)), destination);
    if (!isSaved)
        isSaved =
            saveImage(size.withoutZeros(photoOf(*m_outlook, oidOf(arguments->argument(2)))), destination);
    lock.unlock();
    answer(arguments->argument(0), arguments->argument(1),
           {isSaved ? QStringLiteral("true") : QStringLiteral("false")});
}
