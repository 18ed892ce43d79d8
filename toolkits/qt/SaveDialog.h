#pragma once

#include <QFileDialog>
#include <QLineEdit>

namespace veldrin {

/// A save dialog in which the name that is typed is the file that is written. Qt's own takes a
/// quotation mark for the end of a name, leaves blanks out, and is silent on a name that is too
/// long for the system. Where the desktop shows a dialog of its own, that one decides.
class SaveDialog final : public QFileDialog {
 public:
  SaveDialog(QWidget* parent, const QStringList& filters, const QString& fileName);

  /// Asks: the path, or nothing if the person cancels. An existing file is confirmed here.
  QString ask();

  void accept() override;

 private:
  [[nodiscard]] QString typedPath() const;
  /// Why no file can have that path, for a person to read; empty where one can.
  [[nodiscard]] static QString reasonAgainst(const QString& path);
  bool mayReplace(const QString& path);

  QLineEdit* typed_;  ///< nil in a dialog of the desktop's own
  QString chosen_;
};

}  // namespace veldrin
