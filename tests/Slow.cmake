# The tests that take seconds, with the label of their room and the label slow.
set_tests_properties(AlmanacTest.EachDayOfTwoYearsHasSunEventsOrOneMark
  PROPERTIES LABELS "almanac;slow")
set_tests_properties(ZoneRulesTest.EveryZoneGoesByTheCLibrary PROPERTIES LABELS "places;slow")
set_tests_properties(
  CompanionTest.AFailedSystemCallIsRetriedOrReported
  CompanionTest.BadOptionsGiveOneSentenceAndNoFile
  CompanionTest.MemoryThatRunsOutIsReportedAtAnyBlock
  PROPERTIES LABELS "companion;slow")
