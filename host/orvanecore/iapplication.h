#pragma once

#include "orvanecore_global.h"

#include <QtCore/QString>
#include <QtCore/QVariant>
#include <QtGui/QPixmap>
#include <QtScript/QScriptValue>

class IProvider;

/// What the host offers its providers. GUI thread only.
///
/// The order of the operations is part of the binary interface.
class ORVANECORE_EXPORT IApplication
{
public:
    /// The application that was made last and still lives, or null.
    static IApplication *instance();

    /// Publishes a native function to scripts as the global @p name. Each script call reaches
    /// IProvider::invoke() of @p provider with @p index (invokeRet() if @p returnsValue).
    /// A name published before is replaced. @p interactive marks functions that use the screen or
    /// answer later.
    virtual void registerFunction(IProvider *provider, const QString &name, bool interactive,
                                  bool returnsValue, int index) = 0;

    /// Calls a script function. A call that arrives from an event loop nested inside another
    /// script call waits until that one has returned, and the answer is then an invalid value.
    /// An exception in the function is reported by the host and ends there.
    virtual QScriptValue callFunction(const QScriptValue &thisObject, const QScriptValue &function,
                                      const QScriptValueList &arguments, bool reportErrors) = 0;

    /// Publishes @p picture to scripts and KestImage; returns the name it is known by.
    virtual QString addImageResource(const QString &name, const QPixmap &picture) = 0;

    /// Publishes a stock picture, a file below applicationPath(); returns the name it is known by.
    virtual QString addImageFileResource(const QString &path) = 0;

    /// Frees a published picture; unknown names are ignored.
    virtual void removeImageResource(const QString &name) = 0;

    /// True on a high-density screen (480x640 instead of 240x320).
    virtual bool isVGA() const = 0;

    /// The provider of that name, or null.
    virtual IProvider *provider(const QString &name) const = 0;

    /// The application directory, absolute, ending with a separator.
    virtual QString applicationPath() const = 0;

    virtual QScriptValue newObject() = 0;
    virtual QScriptValue newArray(uint length) = 0;

    /// Converts a value for scripts; an invalid variant becomes undefined.
    virtual QScriptValue toScriptValue(const QVariant &value) = 0;

    /// The script value that stands for "nothing there".
    virtual QScriptValue nullValue() = 0;

    /// Calls every script function bound to @p event, in the order of binding. Waits while a script
    /// call is in progress.
    virtual void fireEvent(const QString &event, const QScriptValueList &arguments) = 0;

    /// Binds @p function to @p event with @p object as its this-object.
    virtual void subscribeEvent(const QScriptValue &object, const QScriptValue &function,
                                const QString &event) = 0;

    /// Removes the binding of @p object to @p event that was made last, if there is one.
    virtual void unsubscribeEvent(const QScriptValue &object, const QString &event) = 0;

    /// Loads the translation file of the current locale: @p basePath, the locale and ".qm".
    virtual void loadTranslation(const QString &basePath) = 0;

    /// Tells that a native modal dialog or text field is open, or is closed again.
    virtual void setNativeDialogOpen(bool open) = 0;

protected:
    IApplication();
    /// Not virtual: providers never destroy the application, and the table begins with registerFunction().
    ~IApplication();
    Q_DISABLE_COPY(IApplication)
};
