#include "toolkits/qt/QtDialogs.h"

#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMessageBox>

#include "shell/FileType.h"
#include "toolkits/qt/QtText.h"

namespace veldrin {
namespace {

/// A type's entry in the dialog, such as "Calendar files (*.ics)". A type that declares no
/// extension has that of the file's own name.
QString entryOf(const QString& typeName, const QString& fileName) {
  const RegisteredFileType* const type = findRegisteredFileType(fromQt(typeName));
  QString extension = type == nullptr ? QString() : toQt(type->extensions);
  if (extension.isEmpty()) extension = QFileInfo(fileName).suffix();
  return typeName.left(1).toUpper() + typeName.mid(1) + " files (*." + extension + ")";
}

void sayIn(QMessageBox& box, const QString& text) {
  box.setWindowTitle("Veldrin");
  box.setTextFormat(Qt::PlainText);
  box.setText(text);
  box.setStandardButtons(QMessageBox::Ok);
}

}  // namespace

Ref<FolderItem> askWhereToSave(QWidget* parent, const String& filter, const String& defaultName) {
  const QString fileName = toQt(defaultName);
  QStringList entries;
  for (const QString& type : toQt(filter).split(';', Qt::SkipEmptyParts)) {
    entries.append(entryOf(type, fileName));
  }
  entries.append("All files (*)");
  QFileDialog dialog(parent, "Save As");
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setFileMode(QFileDialog::AnyFile);
  dialog.setNameFilters(entries);
  dialog.selectFile(fileName);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty()) return nullptr;
  const QByteArray path = QFile::encodeName(dialog.selectedFiles().constFirst());
  return FolderItem::atPath(String(path.toStdString()));
}

void sayInBox(QWidget* parent, const QString& text) {
  QMessageBox box(parent);
  sayIn(box, text);
  box.exec();
}

void sayFailure(QWidget* parent, const QString& reason) {
  QMessageBox box(parent);
  box.setIcon(QMessageBox::Critical);
  sayIn(box, "Veldrin has to end because something went wrong.");
  box.setInformativeText(reason);
  box.exec();
}

}  // namespace veldrin
