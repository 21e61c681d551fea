#pragma once

#include "orvanecore_global.h"

#include <QtCore/QObject>
#include <QtScript/QScriptValue>

class FunctionArguments;
class IApplication;

#define IProvider_iid "Rux.IProvider/1.0"

/// What a plug-in offers the host: a set of native functions for widget scripts.
///
/// The host calls name(), InitializeScript(), BeginInitialize() and EndInitialize() once, in this
/// order, then invoke() for each script call, and Unload() at the end; all on its GUI thread.
/// The order of the operations is part of the binary interface.
///
/// A provider that calls scripts back later may have a boolean property "awaitsAnswers" besides, being a
/// QObject: as long as it is true, the host does not take a widget for finished. It has to be false when the
/// last callback runs.
class ORVANECORE_EXPORT IProvider
{
public:
    virtual ~IProvider();

    /// The name under which IApplication::provider() finds this provider.
    virtual QString name() const = 0;

    /// Hands over the application, which outlives the provider; the provider publishes its functions.
    virtual void InitializeScript(IApplication *application) = 0;

    /// Starts the provider. Every provider has had InitializeScript() by now.
    virtual void BeginInitialize() = 0;

    /// Called when every provider has had BeginInitialize().
    virtual void EndInitialize() = 0;

    /// Stops the provider; no invoke() follows.
    virtual void Unload() = 0;

    /// Runs the function published under @p index, which the host passes as it got it.
    virtual void invoke(int index, FunctionArguments *arguments) = 0;

    /// As invoke(), for a function published as one that returns a value.
    virtual QScriptValue invokeRet(int index, FunctionArguments *arguments) = 0;
};

Q_DECLARE_INTERFACE(IProvider, IProvider_iid)
