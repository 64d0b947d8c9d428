#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <memory>
#include <string_view>
#include <utility>

#include "platform/NibOwner.h"
#include "plugin/panels/AreaEditor.h"

/// The outlets of a panel's area fields, made from its table of areas: the slot's stem with four
/// endings.
namespace cardpanels::areas {

struct FieldRow {
  std::string_view ending;
  AreaField AreaFields::*field;
};

inline constexpr std::array<FieldRow, 4> kFieldRows{{
    {"_X", &AreaFields::x},
    {"_Y", &AreaFields::y},
    {"_Width", &AreaFields::width},
    {"_Height", &AreaFields::height},
}};

inline constexpr std::size_t kFieldCount = kAreaCount * kFieldRows.size();

/// The names of the outlets of a table's areas.
class OutletNames {
 public:
  constexpr explicit OutletNames(const AreaSlots& slots) {
    for (std::size_t i = 0; i < kFieldCount; ++i) {
      const std::string_view stem = slots[i / kFieldRows.size()].outletStem;
      const std::string_view ending = kFieldRows[i % kFieldRows.size()].ending;
      char* const end = std::copy(stem.begin(), stem.end(), texts_[i].data());
      std::copy(ending.begin(), ending.end(), end);
    }
  }

  constexpr const char* operator[](std::size_t i) const { return texts_[i].data(); }

 private:
  // A name and its NUL; a name without the room does not compile.
  std::array<std::array<char, 32>, kFieldCount> texts_{};
};

/// The row of the outlet that fills field `index` of the panel's `fields`.
template <auto fields, std::size_t index>
constexpr platform::Outlet outlet(std::string_view name) {
  using Panel = platform::detail::OwnerOf<decltype(fields)>;
  constexpr std::size_t area = index / kFieldRows.size();
  constexpr AreaField AreaFields::*field = kFieldRows[index % kFieldRows.size()].field;
  return {name,
          [](platform::NibOwner& owner, const std::shared_ptr<platform::View>& view) {
            return platform::connectTo((static_cast<Panel&>(owner).*fields)[area].*field, view);
          },
          [](const platform::NibOwner& owner) -> std::shared_ptr<platform::View> {
            return (static_cast<const Panel&>(owner).*fields)[area].*field;
          }};
}

template <auto fields, std::size_t... index>
constexpr void putOutlets(platform::Outlet* place, const OutletNames& names,
                          std::index_sequence<index...> /*indices*/) {
  ((place[index] = outlet<fields, index>(names[index])), ...);
}

/// A panel's `own` outlets and those that fill its `fields`.
template <auto fields, std::size_t count>
constexpr auto outlets(const std::array<platform::Outlet, count>& own, const OutletNames& names) {
  std::array<platform::Outlet, count + kFieldCount> all{};
  std::copy(own.begin(), own.end(), all.begin());
  putOutlets<fields>(all.data() + count, names, std::make_index_sequence<kFieldCount>());
  return all;
}

}  // namespace cardpanels::areas
