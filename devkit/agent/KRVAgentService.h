#import "agent/KRVProxy.h"

#include <memory>

#include "devkit/agent/Operations.h"

/// The object that the development agent vends: every operation of the interface, each carried out
/// by devkit::Operations. Called on the main thread only.
@interface KRVAgentService : NSObject <KRVProxy> {
 @private
  // Here because this runtime allows instance variables only in the interface.
  std::unique_ptr<devkit::Operations> _operations;
  devkit::AddressBook _addressBook;
  /// The address book in the form of a reply, built once for each change of the book.
  NSArray *_contactRecords;
}

- (instancetype)initWithOperations:(std::unique_ptr<devkit::Operations>)operations;

@end
