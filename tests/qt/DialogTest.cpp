#include <QMenu>
#include <QRegularExpression>
#include <csignal>
#include <string>

#include "shell/window/Dialogs.h"
#include "tests/qt/QtPerson.h"
#include "tests/support/Programs.h"

namespace veldrin::test {
namespace {

TEST(ReportTest, AFailureIsReportedOnStandardErrorAndByTheExitStatus) {
  const std::string calls =
      "(  called from .*\n)*  called from veldrin::test::failByNil(.*)\n"
      "(  called from .*\n)+veldrin: NilObjectException\n";
  const struct {
    std::string causeAndEnd;
    int status;
    std::string errors;
  } rows[] = {{"nil click", 1, calls},
              {"nil signal", 128 + SIGTERM, calls},
              {"disk click", 1, "veldrin: IOException, error 28: No space left on device\n"},
              {"fault click", 1, "veldrin: The form is damaged.\n"}};
  for (const auto& row : rows) {
    SCOPED_TRACE(row.causeAndEnd);
    const Outcome run = runScript(
        "export QT_QPA_PLATFORM=offscreen LC_ALL=C QT_LOGGING_RULES='*=false'; "
        "exec '" VELDRIN_FAILING "' " +
        row.causeAndEnd);
    EXPECT_EQ(run.status, row.status);
    EXPECT_EQ(run.output, "");
    const QString whole = QRegularExpression::anchoredPattern(QString::fromStdString(row.errors));
    EXPECT_TRUE(QRegularExpression(whole).match(QString::fromStdString(run.errors)).hasMatch())
        << run.errors;
  }
}

using DialogTest = QtTest;

TEST_F(DialogTest, ADialogBelongsToTheActiveWindow) {
  const Ref<Window> second = New<Window>();
  second->Title("second"_s);
  second->Constructor();
  for (const Ref<Window>& active : {Ref<Window>(window()), second, Ref<Window>(window())}) {
    frontWindow()->setActive(false);
    active->setActive(true);
    whenAsked([&](QDialog& dialog) {
      EXPECT_EQ(dialog.parentWidget()->windowTitle().toStdString(), text(active->Title()));
      dialog.reject();
    });
    MsgBox("a message"_s);
  }
  second->Close();
}

TEST_F(DialogTest, AHandlerThatFailsBeforeTheLoopEndsTheLoopButNoDialog) {
  const BoundEvent fails(Veldrin::__Lookup(), "Deactivate"_s,
                         [](Object*) { Raise<OutOfBoundsException>(); });
  QApplication::setActiveWindow(nullptr);
  whenAsked([](QDialog& dialog) { dialog.reject(); });
  MsgBox("a message"_s);
  bool hasWaited = false;
  QTimer timer;
  timer.callOnTimeout([&] {
    hasWaited = true;
    QCoreApplication::exit();
  });
  timer.start(5000);
  EXPECT_EQ(raisedBy([&] { person->toolkit().run(); }), "OutOfBoundsException");
  EXPECT_FALSE(hasWaited);
}

using MenuOnDesktopTest = QtTest;

TEST_F(MenuOnDesktopTest, AnItemAddedByTheRefreshIsInTheMenuThatOpens) {
  const BoundEvent adds(Veldrin::__Lookup(), "EnableMenuItems"_s, [](Object* object) {
    const Ref<MenuItem> menu = static_cast<const Veldrin&>(*object).EditMenu();
    if (menu->Child("Added"_s)) return;
    const Ref<MenuItem> item = New<MenuItem>();
    item->Name = "Added"_s;
    item->Text("Added"_s);
    menu->Append(item);
  });
  auto& opening = widget<QMenu>("EditMenu");
  const auto before = opening.actions().size();
  Q_EMIT opening.aboutToShow();
  EXPECT_EQ(&widget<QMenu>("EditMenu"), &opening);
  ASSERT_EQ(opening.actions().size(), before + 1);
  EXPECT_EQ(opening.actions().back(), &item("Added"));
  EXPECT_EQ(opening.actions().back()->text(), "Added");
}

TEST_F(MenuOnDesktopTest, TheEditingCommandsHaveTheKeysOfTheDesktop) {
  for (const auto& [name, key] : {std::pair("EditUndo", QKeySequence::Undo),
                                  {"EditCut", QKeySequence::Cut},
                                  {"EditCopy", QKeySequence::Copy},
                                  {"EditPaste", QKeySequence::Paste},
                                  {"EditSelectAll", QKeySequence::SelectAll}}) {
    EXPECT_TRUE(QKeySequence::keyBindings(key).contains(item(name).shortcut())) << name;
  }
  EXPECT_EQ(item("FileQuit").shortcut(), QKeySequence(Qt::CTRL | Qt::Key_Q));
  EXPECT_TRUE(item("EditClear").shortcut().isEmpty());
}

}  // namespace
}  // namespace veldrin::test
