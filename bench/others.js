// Writes the sunrises and sunsets of 2030 at 47.5 north, 122.5 west, from the library suncalc.
const { getTimes } = require("suncalc");

const lines = [];
const addEvent = (summary, moment) => {
  const start = moment.toISOString().replace(/[-:]|\.\d*/g, "");
  lines.push("BEGIN:VEVENT", `SUMMARY:${summary}`, `DTSTART:${start}`, "END:VEVENT");
};

const noon = new Date(Date.UTC(2030, 0, 1, 20));
for (; noon.getUTCFullYear() === 2030; noon.setUTCDate(noon.getUTCDate() + 1)) {
  const { sunrise, sunset } = getTimes(noon, 47.5, -122.5);
  addEvent("Sunrise", sunrise);
  addEvent("Sunset", sunset);
}
require("fs").writeFileSync(process.argv[2], lines.join("\r\n"));
