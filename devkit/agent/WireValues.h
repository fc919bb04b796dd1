#import <Foundation/Foundation.h>

#include "devkit/agent/Operations.h"

/// The only place where C++ values are converted to objects for the wire, and back.
namespace devkit {

/// The text of an argument. Nothing when it is nil, an object that stayed in the caller's process,
/// or of another class: any process may connect and send anything.
Text textFrom(id argument);

/// An autoreleased string; bytes that are no UTF-8 are replaced.
NSString *stringFrom(const std::string &text);

/// An autoreleased dictionary with the entries of the record, flags as numbers.
NSDictionary *dictionaryFrom(const Record &record);

/// The reply in the form that all operations but two give it: "error", "errorMessage", and "value"
/// when there is one. Autoreleased.
NSDictionary *dictionaryFrom(const Reply &reply);

/// As dictionaryFrom(reply), with a value that is ready for the wire already.
NSDictionary *dictionaryFrom(const Reply &reply, id value);

}  // namespace devkit
