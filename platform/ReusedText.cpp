#include "platform/ReusedText.h"

#include <cstddef>
#include <deque>

namespace cardpanels::platform {
namespace {

struct Pool {
  std::deque<std::string> texts;
  std::size_t lent = 0;

  std::string& lend() {
    if (lent == texts.size()) texts.emplace_back();
    return texts[lent++];
  }
};

Pool& thePool() {
  // Never destroyed: a panel that dies with the process may still log.
  static Pool& pool = *new Pool;
  return pool;
}

}  // namespace

ReusedText::ReusedText() : text_(thePool().lend()) {}

ReusedText::~ReusedText() {
  text_.clear();
  --thePool().lent;
}

}  // namespace cardpanels::platform
