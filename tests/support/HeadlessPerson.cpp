#include "shell/window/MenuItem.h"
#include "tests/support/RuntimeTest.h"
#include "toolkits/headless/HeadlessToolkit.h"

namespace veldrin::test {
namespace {

/// Acts on the controls directly, because the headless toolkit shows nothing.
class HeadlessPerson final : public Person {
 public:
  Toolkit& toolkit() override { return toolkit_; }
  void turnToWindow() override {}
  void runLoop(const std::function<void()>& job) override {
    toolkit_.job = job;
    toolkit_.run();
  }

  void type(std::string_view field, std::string_view text) override {
    at<TextField>(field)->userTyped(String(text));
  }
  void leave(std::string_view field) override { at<TextField>(field)->userLeft(); }
  void press(std::string_view button) override { at<PushButton>(button)->userPressed(); }
  void tick(std::string_view box, bool ticked) override { at<CheckBox>(box)->userTicked(ticked); }
  void choose(std::string_view list, int row) override { at<PopupMenu>(list)->userChose(row); }
  void command(std::string_view menuItem) override {
    window()->MenuBar()->_Lookup(String(menuItem))->userChose();
  }
  void closeWindow() override { window()->Close(); }

  std::string shown(std::string_view control) override {
    return textOf(at<Control>(control), "Text");
  }
  bool isTicked(std::string_view box) override { return at<CheckBox>(box)->Value(); }

  std::string looks(std::string_view control) override {
    const Ref<RectControl> found = at<RectControl>(control);
    const bool isButton = RuntimeObjectIsa(found.get(), PushButton::__Lookup());
    return described(textOf(found, isButton ? "Caption" : "Text"),
                     {found->Left(), found->Top(), found->Width(), found->Height()},
                     found->Visible(), std::get<bool>(valueOf(found, "Bold").storage())) +
           described("", found->Enabled());
  }
  std::string menuLooks(std::string_view item) override {
    const Ref<MenuItem> found = window()->MenuBar()->_Lookup(String(item));
    if (!found) return "";
    return described(std::string(found->Text().view()), found->Enabled(), found->Checked());
  }
  std::string title() override { return std::string(window()->Title().view()); }

 private:
  static Ref<Window> window() { return _WindowSupport.Windows.back(); }
  template <class T>
  static Ref<T> at(std::string_view name) {
    return RuntimeWindowControlByName<T>(*window(), String(name));
  }
  static std::string textOf(const Ref<Object>& control, std::string_view key) {
    return text(std::get<String>(valueOf(control, key).storage()));
  }

  HeadlessToolkit toolkit_;
};

}  // namespace

std::unique_ptr<Person> newPerson() {
  return std::make_unique<HeadlessPerson>();
}

}  // namespace veldrin::test
