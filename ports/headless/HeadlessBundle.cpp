#include "ports/headless/HeadlessBundle.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <fstream>
#include <iterator>
#include <pugixml.hpp>
#include <string_view>
#include <utility>

#include "platform/NibConnections.h"
#include "ports/headless/Controls.h"

namespace cardpanels::headless {
namespace {

using platform::NibOwner;

/// The value of an object's own property, "" when the file does not set it. GtkBuilder takes `_`
/// and `-` in a property's name for the same.
std::string_view property(const pugi::xml_node& object, std::string_view name) {
  for (const auto& each : object.children("property")) {
    std::string own = each.attribute("name").value();
    std::replace(own.begin(), own.end(), '_', '-');
    if (own == name) return each.text().get();
  }
  return {};
}

bool isFalse(std::string_view value) {
  return value == "False" || value == "false" || value == "0";
}

std::int64_t tagOf(std::string_view name) {
  constexpr std::string_view kPrefix = "tag-";
  std::int64_t tag = 0;
  if (name.starts_with(kPrefix)) {
    std::from_chars(name.data() + kPrefix.size(), name.data() + name.size(), tag);
  }
  return tag;
}

/// Makes the views of one file, and notes their ids and handlers.
class Loader {
 public:
  Loader(platform::NibContents& contents, std::shared_ptr<NibOwner> owner)
      : contents_(contents), owner_(std::move(owner)) {}

  std::shared_ptr<platform::View> make(const pugi::xml_node& object) {
    const std::string_view kind = object.attribute("class").value();
    if (kind == "GtkComboBoxText" || kind == "GtkComboBox") return makePopUp(object);
    if (kind == "GtkEntry") return makeTextField(object, "text", TextField::Use::entry);
    if (kind == "GtkLabel") return makeTextField(object, "label", TextField::Use::label);
    if (kind == "GtkNotebook" || kind == "GtkStack") {
      return finish(object, std::make_shared<TabView>());
    }
    return finish(object, std::make_shared<View>());
  }

 private:
  std::shared_ptr<platform::View> makePopUp(const pugi::xml_node& object) {
    const auto popUp = std::make_shared<PopUpButton>();
    for (const auto& item : object.child("items").children("item")) {
      popUp->menu()->addItem(platform::MenuItem::initWithTitle_action_keyEquivalent(
          std::string(item.text().get()), std::nullopt, ""));
    }
    popUp->setEnabled(!isFalse(property(object, "sensitive")));
    for (const auto& signal : object.children("signal")) {
      const char* handler = signal.attribute("handler").value();
      if (const auto* action = owner_->actionNamed(handler)) popUp->setAction({owner_, *action});
    }
    return finish(object, popUp);
  }

  std::shared_ptr<platform::View> makeTextField(const pugi::xml_node& object,
                                                std::string_view textProperty, TextField::Use use) {
    const auto field = std::make_shared<TextField>(use);
    field->setStringValue(std::string(property(object, textProperty)));
    const auto accessible = object.find_child_by_attribute("child", "internal-child", "accessible");
    field->setCaption(
        std::string(property(accessible.child("object"), "AtkObject::accessible-name")));
    return finish(object, field);
  }

  template <class Made>
  std::shared_ptr<platform::View> finish(const pugi::xml_node& object,
                                         const std::shared_ptr<Made>& view) {
    view->setHidden(isFalse(property(object, "visible")));
    view->setTag(tagOf(property(object, "name")));
    for (const auto& child : object.children("child")) {
      if (const auto inner = child.child("object")) view->addSubview(make(inner));
    }
    if (const auto id = object.attribute("id")) contents_.viewsById[id.value()] = view;
    for (const auto& signal : object.children("signal")) {
      contents_.handlers.emplace_back(signal.attribute("handler").value());
    }
    return view;
  }

  platform::NibContents& contents_;
  std::shared_ptr<NibOwner> owner_;
};

std::string atLine(const std::string& file, const std::string& text, std::ptrdiff_t offset) {
  const auto end = text.begin() + std::min<std::ptrdiff_t>(offset, std::ssize(text));
  return file + ":" + std::to_string(1 + std::count(text.begin(), end, '\n'));
}

}  // namespace

std::shared_ptr<platform::View> HeadlessBundle::loadNibNamed_owner(
    const std::string& name, const std::shared_ptr<NibOwner>& owner) {
  platform::NibContents contents;
  contents.file = viewFile(name);
  std::ifstream file(contents.file);
  if (!file) {
    setLoadError(contents.file + ": " + std::strerror(errno));
    return nullptr;
  }
  const std::string text{std::istreambuf_iterator<char>(file), {}};
  pugi::xml_document document;
  const auto parsed = document.load_buffer(text.data(), text.size());
  if (!parsed) {
    setLoadError(atLine(contents.file, text, parsed.offset) + ": " + parsed.description());
    return nullptr;
  }
  const auto top = document.child("interface").child("object");
  if (!top) {
    setLoadError(contents.file + ": no object inside an interface");
    return nullptr;
  }
  const auto view = Loader(contents, owner).make(top);
  setLoadError(platform::connectNib(*owner, contents));
  return loadError() ? nullptr : view;
}

}  // namespace cardpanels::headless
