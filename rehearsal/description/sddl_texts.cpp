#include "rehearsal/description/sddl_texts.h"

#include "simulator/model/security/descriptor.h"
#include "simulator/model/security/sddl_text.h"

namespace simulator {

const std::string& SddlTexts::Of(const std::shared_ptr<const Descriptor>& descriptor) {
  const auto [found, is_new] = texts_.try_emplace(descriptor);
  if (is_new) found->second = SddlText(*descriptor, domains_);
  return found->second;
}

}  // namespace simulator
