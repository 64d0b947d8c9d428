#include "platform/ReusedText.h"

#include <cstddef>
#include <memory>
#include <vector>

namespace cardpanels::platform {
namespace {

struct Pool {
  std::vector<std::unique_ptr<std::string>> texts;
  std::size_t lent = 0;

  std::string& lend() {
    if (lent == texts.size()) texts.push_back(std::make_unique<std::string>());
    return *texts[lent++];
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
