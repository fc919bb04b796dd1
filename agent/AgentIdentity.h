#pragma once

#import <Foundation/Foundation.h>

/// How the agent is found. Everything that must agree between this application, the agent of the
/// development kit and the tests stands here once.
namespace agent {

/// The name under which the agent registers its connection on the local host.
inline NSString *const kConnectionName = @"KRVSyncAgent";

/// Where the installer puts the agent application.
inline NSString *const kApplicationPath = @"/Applications/Veldane/Wayfold/VeldaneKRVAgent.app";

/// The agent application's bundle identifier, a value of the deployment: a build for another one
/// defines KRV_AGENT_BUNDLE_IDENTIFIER (CMake cache variable of that name). Compared without regard
/// to letter case.
#ifndef KRV_AGENT_BUNDLE_IDENTIFIER
#define KRV_AGENT_BUNDLE_IDENTIFIER "com.veldane.wayfold.krvagent"
#endif
inline NSString *const kBundleIdentifier = @KRV_AGENT_BUNDLE_IDENTIFIER;

}  // namespace agent
