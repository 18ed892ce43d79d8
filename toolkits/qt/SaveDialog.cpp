#include "toolkits/qt/SaveDialog.h"

#include <unistd.h>

#include <QDialogButtonBox>
#include <QFileInfo>
#include <QMessageBox>
#include <QPushButton>

#include "toolkits/qt/QtDialogs.h"

namespace veldrin {

SaveDialog::SaveDialog(QWidget* parent, const QStringList& filters, const QString& fileName)
    : QFileDialog(parent, "Save As") {
  setAcceptMode(AcceptSave);
  setFileMode(AnyFile);
  setNameFilters(filters);
  selectFile(fileName);
  nameField_ = findChild<QLineEdit*>("fileNameEdit");
  if (nameField_ == nullptr) return;
  // Runs after Qt's own connection, which disables the button for a bad name. Keeps the button
  // enabled, so that accept() can tell the user what is wrong.
  auto* const buttons = findChild<QDialogButtonBox*>("buttonBox");
  connect(nameField_, &QLineEdit::textChanged, this,
          [buttons] { buttons->button(QDialogButtonBox::Save)->setEnabled(true); });
}

QString SaveDialog::ask() {
  if (exec() != Accepted) return {};
  if (nameField_ != nullptr) return chosen_;
  return selectedFiles().value(0);
}

void SaveDialog::accept() {
  if (nameField_ == nullptr) return QFileDialog::accept();
  const QString path = typedPath();
  if (const QString reason = reasonAgainst(path); !reason.isEmpty())
    return showMessage(this, reason);
  if (QFileInfo(path).isDir()) {
    setDirectory(path);
    nameField_->clear();
    return;
  }
  const bool hasToAsk = !testOption(DontConfirmOverwrite) && QFileInfo::exists(path);
  if (hasToAsk && !mayReplace(path)) return;
  chosen_ = path;
  QDialog::accept();  // NOLINT(bugprone-parent-virtual-call): QFileDialog parses the name
}

QString SaveDialog::typedPath() const {
  QString name = nameField_->text();
  if (name.trimmed().isEmpty()) return {};
  if (name == "~" || name.startsWith("~/")) name.replace(0, 1, QDir::homePath());
  return directory().absoluteFilePath(name);
}

QString SaveDialog::reasonAgainst(const QString& path) {
  if (path.isEmpty()) return "A file needs a name.";
  const QFileInfo file(path);
  const long limit = ::pathconf(QFile::encodeName(file.path()).constData(), _PC_NAME_MAX);
  const bool isTooLong = limit >= 0 && QFile::encodeName(file.fileName()).size() > limit;
  if (!isTooLong) return {};
  return QString("The name is too long. It can have %1 bytes here.").arg(limit);
}

bool SaveDialog::mayReplace(const QString& path) {
  const QString question = "%1 already exists.\nDo you want to replace it?";
  QMessageBox box(QMessageBox::Warning, windowTitle(), question.arg(QFileInfo(path).fileName()),
                  QMessageBox::Yes | QMessageBox::No, this);
  box.setTextFormat(Qt::PlainText);
  box.setDefaultButton(QMessageBox::No);
  return box.exec() == QMessageBox::Yes;
}

}  // namespace veldrin
