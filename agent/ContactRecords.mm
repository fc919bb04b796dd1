#import "agent/ContactRecords.h"

#import "agent/Records.h"
#import "agent/ResultDictionary.h"

namespace agent {

bool visitContactRecords(id records, const ContactVisitor &visit) {
  static const std::vector<NSString *> keys = {@"name", @"primaryemail"};
  return visitRecords(records, keys, [&](const std::vector<id> &values) {
    visit(stringOrNil(values[0]), stringOrNil(values[1]));
  });
}

}  // namespace agent
