#include "dialog/CardScene.h"

#include <utility>

#include "host/ChoiceAreas.h"
#include "host/JobOptions.h"

namespace cardpanels::dialog {
namespace {

void addShapes(CardScene& scene, const host::JobOptions& job, const AreaSide& side,
               const std::vector<CardArea>& areas, const std::string& begun) {
  for (const CardArea& area : areas) {
    const auto place = rectangleOf(area.texts, scene.card);
    if (!place || (area.key == begun && place->isNothing())) continue;
    scene.shapes.push_back({.key = area.key,
                            .include = area.include,
                            .number = area.number,
                            .place = *place,
                            .texts = area.texts,
                            .warnings = {}});
  }
  for (AreaWarning& warning : areaWarnings(job, side, areas, scene.card)) {
    for (CardShape& shape : scene.shapes) {
      if (shape.key == warning.key && shape.key != begun) shape.warnings.push_back(warning);
    }
  }
}

void addFixed(CardScene& scene, const host::JobOptions& job, const std::string& option) {
  for (const AreaTexts& texts : host::choiceAreas(job, option)) {
    if (const auto place = rectangleOf(texts, scene.card)) scene.fixed.push_back(*place);
  }
  if (!scene.fixed.empty()) {
    scene.fixedTitle = job.choiceTitle(option, job.marked(option).value_or(""));
  }
}

}  // namespace

CardScene cardScene(const host::JobOptions& job, const AreaSide& side, const TypedTexts& typed,
                    const std::string& begun) {
  CardScene scene;
  scene.card = host::cardGeometry(job);
  scene.isBack = side.isBack();
  if (!scene.card.hasSize() || !job.hasOption(side.definedAreas.option)) return scene;
  const bool hasAreas = hasDefinedAreas(job, side);
  const bool mayBeFixed = side.ribbon.option == nullptr || isChosen(job, side.ribbon);
  if (hasAreas) addShapes(scene, job, side, areasOf(job, side, typed), begun);
  if (mayBeFixed) addFixed(scene, job, side.definedAreas.option);
  scene.isShown = hasAreas || !scene.fixed.empty();
  return scene;
}

}  // namespace cardpanels::dialog
