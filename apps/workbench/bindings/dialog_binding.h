#pragma once

#include <QDialog>

#include "bindings/window_binding.h"
#include "platform/dialog.h"

namespace quillon {

class QtPlatform;

/// A dialog: a window of the dialog's size and colours with the dialog's controls in it. Return agrees and Esc leaves,
/// where no control takes the key.
class DialogBinding : public QDialog {
public:
    DialogBinding(CDialog& dialog, const BindingFactory& factory, QWidget* parent);

    WindowBinding& Client() const { return *client; }
    /// Hides the window, which deletes itself later: it may be in the middle of one of its own events.
    void Close();

    void accept() override;
    void reject() override;

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void ApplyLook();
    CDialog* Model() const { return static_cast<CDialog*>(client->Model()); }

    WindowBinding* client;
};

/// Makes the platform show its dialogs by these. The factory outlives the last dialog.
void ShowDialogsBy(QtPlatform& platform, const BindingFactory& factory);

}  // namespace quillon
