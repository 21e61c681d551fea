#pragma once

#include "platform/windows/handles.h"
#include "platform/windows/widetext.h"

#include <oleauto.h>

#include <memory>
#include <optional>
#include <string>

namespace platform {

struct ComRelease
{
    void operator()(IUnknown *object) const { object->Release(); }
};

/// A reference to a COM object, given back at the end; null is none.
template <typename Interface>
using ComPointer = std::unique_ptr<Interface, ComRelease>;

/// The object that @p give puts where it is told; null if it fails.
template <typename Interface, typename Give>
ComPointer<Interface> obtain(Give give)
{
    Interface *object = nullptr;
    const HRESULT result = give(&object);
    return ComPointer<Interface>(SUCCEEDED(result) ? object : nullptr);
}

/// Another interface of an object; null if it has none of that kind.
template <typename Interface>
ComPointer<Interface> query(IUnknown &object)
{
    void *found = nullptr;
    const HRESULT result = object.QueryInterface(Interface::id, &found);
    return ComPointer<Interface>(SUCCEEDED(result) ? static_cast<Interface *>(found) : nullptr);
}

/// What a getter gives; nothing if it fails.
template <typename Interface, typename Value>
std::optional<Value> valueOf(Interface &object, HRESULT (STDMETHODCALLTYPE Interface::*get)(Value *))
{
    Value value{};
    const HRESULT result = (object.*get)(&value);
    return SUCCEEDED(result) ? std::optional<Value>(value) : std::nullopt;
}

/// A text of ours as methods take it.
using ComText = Unique<BSTR, SysFreeString>;

/// Null if there is no memory for it.
inline ComText comText(const std::u16string &text)
{
    return ComText(SysAllocString(wide(text)));
}

} // namespace platform
