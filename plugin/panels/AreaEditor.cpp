#include "plugin/panels/AreaEditor.h"

#include "plugin/panels/AreaStrings.h"

namespace cardpanels::areas {
namespace {

using platform::StringEncoding;
using platform::Text;

Text textIn(const AreaField& field) {
  if (!field) return std::nullopt;
  return field->stringValue();
}

bool isNoArea(const Text& area) { return !area || area == "Default" || area == "0in 0in 0in 0in"; }

}  // namespace

Text areaInFields(const AreaField& x, const AreaField& y, const AreaField& width,
                  const AreaField& height) {
  const Text typed[] = {textIn(x), textIn(y), textIn(width), textIn(height)};
  const char* area = formatArea(cStringUsingEncoding(typed[0], StringEncoding::ascii),
                                cStringUsingEncoding(typed[1], StringEncoding::ascii),
                                cStringUsingEncoding(typed[2], StringEncoding::ascii),
                                cStringUsingEncoding(typed[3], StringEncoding::ascii));
  return stringWithCString(area, StringEncoding::utf8);
}

void showInFields(const Text& area, const AreaFields& fields) {
  if (!fields.x || !fields.y || !fields.width || !fields.height) return;
  std::array<const char*, 4> parts{"", "", "", ""};
  if (!isNoArea(area)) {
    parseArea(cStringUsingEncoding(area, StringEncoding::ascii), parts[0], parts[1], parts[2],
              parts[3]);
  }
  // A field may run others' code when it is set, so all parts are copied first.
  const Text x = stringWithCString(parts[0], StringEncoding::ascii);
  const Text y = stringWithCString(parts[1], StringEncoding::ascii);
  const Text width = stringWithCString(parts[2], StringEncoding::ascii);
  const Text height = stringWithCString(parts[3], StringEncoding::ascii);
  fields.x->setStringValue(x);
  fields.y->setStringValue(y);
  fields.width->setStringValue(width);
  fields.height->setStringValue(height);
}

}  // namespace cardpanels::areas
