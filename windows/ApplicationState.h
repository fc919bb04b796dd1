#import <Foundation/Foundation.h>

/// What windows and plug-in need of the application's state. The application's delegate adopts
/// this, so that nobody else has to know its class. Main thread.
@protocol ApplicationState <NSObject>

/// YES while no window of the application is open and no direct copy is running.
@property (assign) BOOL contextMenuFlag;

/// One entry (a string) for each contact, in the user's alphabetical order.
@property (copy) NSMutableArray *addressBookForShare;

/// The address of each contact, in the agent's order.
@property (copy) NSMutableArray *employeeContacts;

/// The entries of addressBookForShare that begin with the substring, then those that contain it
/// further on; letter case does not count. Empty for nil.
- (NSArray *)completionsForSubstring:(NSString *)substring;

/// Asks the agent for the address books while addressBookForShare holds no entry. Blocks until the
/// agent has answered.
- (void)conditionalFetchAddressBook;

/// Hides the application.
- (void)hideMe;

@end

/// The application's delegate; nil before there is one.
id<ApplicationState> applicationState();
