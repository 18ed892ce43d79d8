#pragma once

#include <QFileDialog>
#include <QLineEdit>

namespace veldrin {

/// A save dialog that takes the typed file name literally, except a leading "~". Qt's own dialog
/// ends names at quotation marks, drops spaces and does not report names that are too long. If the
/// desktop provides a native dialog, Veldrin uses it unchanged.
class SaveDialog final : public QFileDialog {
 public:
  SaveDialog(QWidget* parent, const QStringList& filters, const QString& fileName);

  /// Shows the dialog. Returns the path, or an empty text if the user cancels. Asks before
  /// replacing a file.
  QString ask();

  void accept() override;

 private:
  [[nodiscard]] QString typedPath() const;
  /// A sentence that tells the user why the path is invalid; empty if it is valid.
  [[nodiscard]] static QString reasonAgainst(const QString& path);
  bool mayReplace(const QString& path);

  QLineEdit* nameField_;  ///< nil in a native dialog
  QString chosen_;
};

}  // namespace veldrin
