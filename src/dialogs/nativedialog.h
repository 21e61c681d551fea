#pragma once

#include <orvanecore/iapplication.h>

/// Tells the host that a native modal dialog is open, for as long as it lives.
class NativeDialog
{
public:
    explicit NativeDialog(IApplication &application)
        : m_application(application)
    {
        m_application.setNativeDialogOpen(true);
    }
    ~NativeDialog() { m_application.setNativeDialogOpen(false); }
    Q_DISABLE_COPY(NativeDialog)

private:
    IApplication &m_application;
};
