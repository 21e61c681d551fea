#pragma once

#include <QtCore/QPointer>

#include <utility>

/// Owns a modal dialog for one call. Whoever closes the windows of an application may destroy it in that
/// time.
template <typename Dialog>
class DialogOwner
{
public:
    template <typename... Arguments>
    explicit DialogOwner(Arguments &&...arguments)
        : m_dialog(new Dialog(std::forward<Arguments>(arguments)...))
    {
    }
    ~DialogOwner() { delete m_dialog.data(); }
    Q_DISABLE_COPY(DialogOwner)

    /// Null once the dialog has been destroyed.
    Dialog *get() const { return m_dialog.data(); }
    Dialog *operator->() const { return m_dialog.data(); }

private:
    QPointer<Dialog> m_dialog;
};
