#include "holm/application.h"
#include "orvanecore/functionarguments.h"
#include "provider/argumentcheck.h"
#include "provider/kestcommandprovider.h"

#include <QtCore/QDir>
#include <QtScript/QScriptContext>
#include <benchmark/benchmark.h>

namespace {

constexpr int callsPerRun = 1000;
constexpr int repetitions = 5;

/// A provider whose first function does nothing but call back.
class IdleProvider : public KestCommandProvider
{
public:
    explicit IdleProvider(IApplication *application)
    {
        InitializeScript(application);
        functionTable[0] = static_cast<Function>(&IdleProvider::callBack);
    }

private:
    void callBack(FunctionArguments *arguments)
    {
        if (checkArguments("callBack", *arguments, {2, 2, {ArgumentType::Any, ArgumentType::Function}}))
            answer(arguments->argument(0), arguments->argument(1), {});
    }
};

QScriptValue bareCallBack(QScriptContext *context, QScriptEngine *)
{
    context->argument(1).call(context->argument(0));
    return QScriptValue();
}

QScriptValue loopCalling(QScriptEngine &engine, const QString &function)
{
    return engine.evaluate(QStringLiteral("(function() { var me = {}, f = function() {};"
                                          " for (var i = 0; i < %1; ++i) %2(me, f); })")
                               .arg(callsPerRun)
                               .arg(function));
}

void callThroughInvoke(benchmark::State &state)
{
    Application application(QDir::tempPath(), false);
    IdleProvider provider(&application);
    QScriptValue loop = loopCalling(application.engine(), QStringLiteral("getFiles"));
    for (auto _ : state)
        loop.call();
}

void callBareFunction(benchmark::State &state)
{
    QScriptEngine engine;
    engine.globalObject().setProperty(QStringLiteral("bare"), engine.newFunction(bareCallBack));
    QScriptValue loop = loopCalling(engine, QStringLiteral("bare"));
    for (auto _ : state)
        loop.call();
}

} // namespace

BENCHMARK(callThroughInvoke)->Repetitions(repetitions)->Unit(benchmark::kMicrosecond);
BENCHMARK(callBareFunction)->Repetitions(repetitions)->Unit(benchmark::kMicrosecond);
