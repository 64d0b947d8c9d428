#include "dialog/TypedAreas.h"

#include <algorithm>
#include <utility>

#include "dialog/CardAreas.h"

namespace cardpanels::dialog {
namespace {

std::vector<std::string> textsOf(const std::vector<MeasurementField*>& fields) {
  std::vector<std::string> texts(fields.size());
  std::transform(fields.begin(), fields.end(), texts.begin(),
                 [](const MeasurementField* field) { return field->text(); });
  return texts;
}

template <class Texts>
void show(const Texts& texts, const std::vector<MeasurementField*>& fields) {
  for (std::size_t i = 0; i < std::min(texts.size(), fields.size()); ++i) {
    fields[i]->setText(texts[i]);
  }
}

/// Whether one of the fields has the focus.
bool hasFocus(const std::vector<MeasurementField*>& fields) {
  return std::any_of(fields.begin(), fields.end(),
                     [](const MeasurementField* field) { return field->hasFocus(); });
}

bool isEdited(const std::vector<MeasurementField*>& fields) {
  return std::any_of(fields.begin(), fields.end(),
                     [](const MeasurementField* field) { return field->isEdited(); });
}

}  // namespace

TypedAreas::TypedAreas(platform::NibOwner& owner, Client client) : client_(std::move(client)) {
  for (const platform::Outlet& outlet : owner.outlets()) {
    auto view = outlet.view(owner);
    auto* const field = dynamic_cast<MeasurementField*>(view.get());
    if (field == nullptr) continue;
    views_.push_back(std::move(view));
    const auto place = areaFieldOf(outlet.name);
    const std::string key = place ? place->key : "";
    if (key.empty() || rows_.empty() || rows_.back().key != key) {
      rows_.push_back({.key = key, .fields = {}, .typed = {}, .refusal = {}});
    }
    rows_.back().fields.push_back(field);
    field->setWatcher(this);
  }
}

TypedAreas::~TypedAreas() {
  // The fields may live on with their panel.
  for (const Row& row : rows_) {
    for (MeasurementField* field : row.fields) field->setWatcher(nullptr);
  }
}

TypedAreas::Row& TypedAreas::rowOf(const MeasurementField& field) {
  return *std::find_if(rows_.begin(), rows_.end(), [&field](const Row& row) {
    return std::find(row.fields.begin(), row.fields.end(), &field) != row.fields.end();
  });
}

TypedAreas::Row* TypedAreas::rowOf(const std::string& key) {
  const auto row =
      std::find_if(rows_.begin(), rows_.end(), [&key](const Row& each) { return each.key == key; });
  return key.empty() || row == rows_.end() ? nullptr : &*row;
}

bool TypedAreas::hasFieldsFor(const AreaSide& side) const {
  return std::any_of(rows_.begin(), rows_.end(), [&side](const Row& row) {
    return row.key.starts_with(side.include.key) || row.key.starts_with(side.exclude.key);
  });
}

MeasurementField* TypedAreas::firstWrong() const {
  for (const Row& row : rows_) {
    for (MeasurementField* field : row.fields) {
      if (field->holdsWrongText()) return field;
    }
  }
  return nullptr;
}

const TypedAreas::Row* TypedAreas::firstRefusedRow() const {
  const auto row = std::find_if(rows_.begin(), rows_.end(),
                                [](const Row& each) { return !each.refusal.empty(); });
  return row == rows_.end() ? nullptr : &*row;
}

MeasurementField* TypedAreas::firstRefused() const {
  const Row* const row = firstRefusedRow();
  return row == nullptr ? nullptr : row->fields.front();
}

std::string TypedAreas::refusal() const {
  const Row* const row = firstRefusedRow();
  return row == nullptr ? "" : row->refusal;
}

void TypedAreas::takeStoredBack() {
  for (Row& row : rows_) {
    if (!std::exchange(row.refusal, {}).empty()) show(client_.stored(row.key), row.fields);
  }
  // The panel takes what its fields show.
  store();
}

void TypedAreas::keepRefused() {
  const auto refusals = client_.refusals();
  for (Row& row : rows_) {
    const auto refusal = refusals.find(row.key);
    if (refusal == refusals.end() || row.typed.empty() || isEdited(row.fields)) continue;
    row.refusal = refusal->second;
    show(row.typed, row.fields);
    for (MeasurementField* field : row.fields) field->reject(row.refusal);
  }
}

void TypedAreas::storeEdits() {
  const bool edited =
      std::any_of(rows_.begin(), rows_.end(), [](const Row& row) { return isEdited(row.fields); });
  if (edited && firstWrong() == nullptr) store();
}

void TypedAreas::store() {
  for (Row& row : rows_) {
    row.typed = textsOf(row.fields);
    row.refusal.clear();
    for (MeasurementField* field : row.fields) field->settle();
  }
  const std::weak_ptr<bool> alive = alive_;
  client_.store();
  if (alive.expired()) return;
  keepRefused();
  client_.changed();
}

TypedTexts TypedAreas::texts() const {
  TypedTexts all;
  for (const Row& row : rows_) {
    AreaTexts& texts = all[row.key];
    for (std::size_t i = 0; i < std::min(texts.size(), row.fields.size()); ++i) {
      texts.at(i) = row.fields[i]->text();
    }
  }
  return all;
}

std::string TypedAreas::areaBegun() const {
  for (const Row& row : rows_) {
    const bool lacks = std::any_of(row.fields.begin(), row.fields.end(),
                                   [](const auto* field) { return field->text().empty(); });
    if (lacks && isEdited(row.fields) && hasFocus(row.fields)) return row.key;
  }
  return "";
}

void TypedAreas::setUnitHelp(const std::string& help) {
  for (const Row& row : rows_) {
    for (MeasurementField* field : row.fields) field->setUnitHelp(help);
  }
}

void TypedAreas::takeRefusalAway(Row& row) {
  if (std::exchange(row.refusal, {}).empty()) return;
  for (MeasurementField* each : row.fields) each->judge();
}

void TypedAreas::typed(MeasurementField& field) {
  takeRefusalAway(rowOf(field));
  client_.changed();
}

void TypedAreas::type(const std::string& key, const AreaTexts& texts) {
  Row* const row = rowOf(key);
  if (row == nullptr) return;
  takeRefusalAway(*row);
  for (std::size_t i = 0; i < std::min(texts.size(), row->fields.size()); ++i) {
    if (row->fields[i]->text() != texts.at(i)) row->fields[i]->type(texts.at(i));
  }
  client_.changed();
}

void TypedAreas::edit(const std::string& key) {
  if (const Row* const row = rowOf(key)) row->fields.front()->takeFocus();
}

void TypedAreas::left(MeasurementField& field) {
  const std::weak_ptr<bool> alive = alive_;
  client_.later([this, alive, &field] {
    if (!alive.expired() && !hasFocus(rowOf(field).fields)) storeEdits();
  });
}

void TypedAreas::entered(MeasurementField& /*field*/) { storeEdits(); }

}  // namespace cardpanels::dialog
