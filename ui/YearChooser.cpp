#include "daystatus/Veldrin.h"
#include "shell/values/Mathematics.h"
#include "shell/values/Text.h"
#include "shell/window/BackgroundTask.h"

namespace veldrin {

void Veldrin::WhichYear_Open() {
  const Ref<Date> today = newDate();
  today->Constructor();
  for (std::int32_t row = 0; row <= WhichYear()->ListCount() - 1; ++row) {
    if (Val(WhichYear()->List(row)) == RuntimeCvtSInt32ToReal64(today->Year())) {
      WhichYear()->ListIndex(row);
      // If the row was selected already, no "Change" handler has written the dates.
      SetDaylightSavingsBounds(today->Year());
      return;
    }
    RuntimeBackgroundTask();
  }
}

void Veldrin::WhichYear_Change() {
  if (WhichYear()->ListIndex() >= 0) {
    SetDaylightSavingsBounds(RuntimeCvtReal64ToSInt32(Val(WhichYear()->Text())));
  }
  UpdateStatus();
}

}  // namespace veldrin
