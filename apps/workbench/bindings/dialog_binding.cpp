#include "bindings/dialog_binding.h"

#include <QKeyEvent>
#include <QPointer>

#include "frame/colour_dialog.h"
#include "platform/user_actions.h"
#include "toolkit/colours.h"
#include "toolkit/qt_platform.h"
#include "toolkit/text_edge.h"

namespace quillon {
namespace {

class View : public DialogView {
public:
    explicit View(DialogBinding& shown) : window(&shown) {}
    ~View() override {
        if (window) window->Close();
    }

private:
    QPointer<DialogBinding> window;
};

}  // namespace

DialogBinding::DialogBinding(CDialog& dialog, const BindingFactory& factory, QWidget* parent)
    : QDialog(parent), client(new WindowBinding(dialog, factory, this)) {
    setModal(dialog.IsModal());
    client->onChanged = [this] { ApplyLook(); };
    const QSize size(dialog.GetClientSize().width, dialog.GetClientSize().height);
    setMinimumSize(size);
    if (!dialog.IsResizable()) setMaximumSize(size);
    resize(size);
    ApplyLook();
}

void DialogBinding::ApplyLook() {
    const CDialog* const dialog = Model();
    if (!dialog) return;
    setWindowTitle(ToQString(dialog->GetWindowText()));
    const auto* const coloured = dynamic_cast<const CColourDialogEx*>(dialog);
    if (!coloured) return;
    QPalette colours;
    const QColor ground = QColorOf(coloured->GetBackground());
    const QColor text = QColorOf(coloured->GetTextColour());
    for (const auto role : {QPalette::Window, QPalette::Base}) colours.setColor(role, ground);
    for (const auto role : {QPalette::WindowText, QPalette::Text}) {
        colours.setColor(role, text);
        colours.setColor(QPalette::Disabled, role, Mix(ground, text, 0.55));
    }
    setPalette(colours);
}

void DialogBinding::Close() {
    client->Release();
    hide();
    deleteLater();
}

void DialogBinding::accept() {
    if (CDialog* const dialog = Model()) user::Accept(*dialog);
}

void DialogBinding::reject() {
    if (CDialog* const dialog = Model()) user::Dismiss(*dialog);
}

void DialogBinding::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        accept();
    } else {
        QDialog::keyPressEvent(event);
    }
}

void DialogBinding::resizeEvent(QResizeEvent* event) {
    QDialog::resizeEvent(event);
    client->setGeometry(rect());
}

void ShowDialogsBy(QtPlatform& platform, const BindingFactory& factory) {
    platform.SetDialogMaker([&factory](CDialog& dialog, QWidget* parent) -> std::unique_ptr<DialogView> {
        auto* const window = new DialogBinding(dialog, factory, parent);
        window->show();
        return std::make_unique<View>(*window);
    });
}

}  // namespace quillon
