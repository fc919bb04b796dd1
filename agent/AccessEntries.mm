#import "agent/AccessEntries.h"

#import "agent/Records.h"
#import "agent/ResultDictionary.h"

namespace agent {

bool visitAccessEntries(id entries, const AccessVisitor &visit) {
  static const std::vector<NSString *> keys = {@"type",      @"candownload", @"canupload",
                                               @"candelete", @"isowner",     @"userfname",
                                               @"userlname", @"useremail"};
  return visitRecords(entries, keys, [&](const std::vector<id> &values) {
    visit({.type = stringOrNil(values[0]),
           .canDownload = flagOf(values[1]),
           .canUpload = flagOf(values[2]),
           .canDelete = flagOf(values[3]),
           .isOwner = flagOf(values[4]),
           .firstName = stringOrNil(values[5]),
           .lastName = stringOrNil(values[6]),
           .address = stringOrNil(values[7])});
  });
}

}  // namespace agent
