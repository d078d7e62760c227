// Texts of descriptors that many nodes share.
#ifndef REHEARSAL_DESCRIPTION_SDDL_TEXTS_H_
#define REHEARSAL_DESCRIPTION_SDDL_TEXTS_H_

#include <map>
#include <memory>
#include <string>

namespace simulator {

struct AccountDomains;
struct Descriptor;

class SddlTexts {
 public:
  // `domains` must outlive this object.
  explicit SddlTexts(const AccountDomains& domains) : domains_(domains) {}

  const std::string& Of(const std::shared_ptr<const Descriptor>& descriptor);

 private:
  const AccountDomains& domains_;
  std::map<std::shared_ptr<const Descriptor>, std::string> texts_;
};

}  // namespace simulator

#endif  // REHEARSAL_DESCRIPTION_SDDL_TEXTS_H_
