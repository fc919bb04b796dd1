# Read by ctest after the tests are known: those that must not run beside each other.
set_tests_properties(
    AgentLaunch.ARunningAgentIsNotStartedAndNothingIsLogged
    AgentLaunch.AMissingAgentIsLoggedAndStartedFromItsPlace
    PROPERTIES RESOURCE_LOCK agents_place)
