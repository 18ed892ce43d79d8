# Tests that take seconds have the label slow beside the label of their room.
set_tests_properties(AlmanacTest.EachDayOfTwoYearsHasSunEventsOrOneMark
  PROPERTIES LABELS "almanac;slow")
set_tests_properties(ZoneRulesTest.EveryZoneGoesByTheCLibrary PROPERTIES LABELS "places;slow")
set_tests_properties(
  CompanionTest.AFailedSystemCallIsRetriedOrReported
  CompanionTest.BadOptionsGiveOneSentenceAndNoFile
  CompanionTest.MemoryThatRunsOutIsReportedAtAnyBlock
  PROPERTIES LABELS "companion;slow")
