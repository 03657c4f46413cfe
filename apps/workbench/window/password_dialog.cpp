#include "window/password_dialog.h"

#include <QApplication>
#include <QDialog>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "toolkit/text_edge.h"

namespace quillon {
namespace {

class PasswordDialog : public QDialog {
public:
    PasswordDialog(QWidget* parent, PasswordLock& lock) : QDialog(parent), passwords(lock) {
        setWindowTitle("Password");
        auto* const form = new QFormLayout(this);
        const bool present = passwords.IsPasswordPresent();
        form->addRow(new QLabel(present ? "Clearance and Tolerance are locked by a password."
                                        : "A password locks Clearance and Tolerance."));
        if (present) current = AddField(*form, "&Current password");
        fresh = AddField(*form, "&New password");
        repeated = AddField(*form, "&Repeat it");
        form->addRow(complaint = new QLabel(" "));
        auto* const buttons = new QDialogButtonBox(QDialogButtonBox::Cancel);
        connect(buttons->addButton("&Set", QDialogButtonBox::AcceptRole), &QPushButton::clicked, this,
                [this] { Set(); });
        if (present) {
            connect(buttons->addButton("C&lear", QDialogButtonBox::DestructiveRole), &QPushButton::clicked, this,
                    [this] { Clear(); });
        }
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        form->addRow(buttons);
    }

private:
    static QLineEdit* AddField(QFormLayout& form, const QString& label) {
        auto* const field = new QLineEdit;
        field->setEchoMode(QLineEdit::Password);
        form.addRow(label, field);
        return field;
    }
    void Complain(const QString& text) {
        complaint->setText(text);
        QApplication::beep();
    }
    /// Whether the password in force was given, or none is.
    bool MayChange() {
        if (!current) return true;
        const PASSWORD_ANSWER answer = passwords.Check(FromQString(current->text()));
        if (answer == PASSWORD_ANSWER::RIGHT) return true;
        Complain(ToQString(passwords.Complaint(answer)));
        return false;
    }
    void Set() {
        if (fresh->text().isEmpty()) return Complain("The new password is empty.");
        if (fresh->text() != repeated->text()) return Complain("The two entries differ.");
        if (!MayChange()) return;
        if (!passwords.Set(FromQString(fresh->text()))) return Complain("This password can't be kept.");
        accept();
    }
    void Clear() {
        if (!MayChange()) return;
        passwords.Clear();
        accept();
    }

    PasswordLock& passwords;
    QLineEdit* current = nullptr;  // only where a password is in force
    QLineEdit* fresh = nullptr;
    QLineEdit* repeated = nullptr;
    QLabel* complaint = nullptr;
};

}  // namespace

bool ChangePassword(QWidget* parent, PasswordLock& passwords) {
    return PasswordDialog(parent, passwords).exec() == QDialog::Accepted;
}

}  // namespace quillon
