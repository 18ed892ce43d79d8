#include "toolkits/qt/QtDialogs.h"

#include <QFile>
#include <QFileInfo>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <algorithm>
#include <utility>

#include "shell/files/FileType.h"
#include "toolkits/qt/QtText.h"
#include "toolkits/qt/SaveDialog.h"

namespace veldrin {
namespace {

/// The filter entry of a file type, such as "Calendar files (*.ics)". For a type without
/// extensions, uses the extension of `fileName`.
QString entryOf(const QString& typeName, const QString& fileName) {
  const RegisteredFileType* const type = findRegisteredFileType(fromQt(typeName));
  QString extension = type == nullptr ? QString() : toQt(type->extensions);
  if (extension.isEmpty()) extension = QFileInfo(fileName).suffix();
  return typeName.left(1).toUpper() + typeName.mid(1) + " files (*." + extension + ")";
}

/// Shortens the text to fit the screen: drops middle lines and elides words and lines in the
/// middle. The box breaks lines only at spaces, so a long path must be elided.
QString shortened(const QMessageBox& box, const QString& text) {
  constexpr qsizetype MostLines = 20;
  const int widest = box.screen()->availableGeometry().width() / 2;
  QStringList lines = text.split('\n');
  if (lines.size() > MostLines) {
    lines = lines.first(MostLines / 2) + QStringList("\u2026") + lines.last(MostLines / 2);
  }
  const auto elide = [&](QString& part, int width) {
    part = box.fontMetrics().elidedText(part, Qt::ElideMiddle, width);
  };
  const int rows = std::max(1, static_cast<int>(MostLines / lines.size()));
  for (QString& line : lines) {
    QStringList words = line.split(' ');
    for (QString& word : words) elide(word, widest);
    elide(line = words.join(' '), rows * widest);
  }
  return lines.join('\n');
}

/// Shows the text and an optional reason. If one was shortened, a screen reader still gets both in
/// full; the details show the full reason, or the full text if there is no reason.
void showIn(QMessageBox& box, const QString& text, const QString& reason) {
  box.setWindowTitle("Veldrin");
  box.setTextFormat(Qt::PlainText);
  box.setText(shortened(box, text));
  box.setInformativeText(shortened(box, reason));
  box.setStandardButtons(QMessageBox::Ok);
  if (box.text() != text || box.informativeText() != reason) {
    box.setDetailedText(reason.isEmpty() ? text : reason);
    for (const auto& [name, whole] :
         {std::pair("qt_msgbox_label", text), {"qt_msgbox_informativelabel", reason}}) {
      if (auto* const label = box.findChild<QLabel*>(name)) label->setAccessibleName(whole);
    }
  }
  box.exec();
}

}  // namespace

Ref<FolderItem> askWhereToSave(QWidget* parent, const String& filter, const String& defaultName) {
  const QString fileName = toQt(defaultName);
  QStringList entries;
  for (const QString& type : toQt(filter).split(';', Qt::SkipEmptyParts)) {
    entries.append(entryOf(type, fileName));
  }
  entries.append("All files (*)");
  const QString chosen = SaveDialog(parent, entries, fileName).ask();
  if (chosen.isEmpty()) return nullptr;
  return FolderItem::atPath(String(QFile::encodeName(chosen).toStdString()));
}

void showMessage(QWidget* parent, const QString& text) {
  QMessageBox box(parent);
  showIn(box, text, {});
}

void showFailure(QWidget* parent, const QString& reason) {
  QMessageBox box(parent);
  box.setIcon(QMessageBox::Critical);
  showIn(box, "Veldrin has to end because something went wrong.", reason);
}

}  // namespace veldrin
