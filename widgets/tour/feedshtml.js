// How the page "Feeds" looks: headlines, weather and problems as rich text.

/** @param {string | number | undefined} text what may be missing @return {string} */
function escaped(text) {
  return text === undefined ? "" : String(text).replace(/&/g, "&amp;").replace(/</g, "&lt;").replace(/>/g, "&gt;")
    .replace(/"/g, "&quot;");
}

/** A box with a coloured ground.
 * @param {string} colour @param {string} rows @return {string} */
function boxed(colour, rows) {
  return "<table width=\"100%\" cellspacing=\"0\" cellpadding=\"4\" bgcolor=\"" + colour + "\">" + rows + "</table>";
}

/** @param {string} problem @return {string} */
function problemAsHtml(problem) {
  return boxed("#fbeeee", "<tr><td style=\"color: #a32020\">" + escaped(problem) + "</td></tr>");
}

/** @param {KestFeedItem[]} items @param {string} title @return {string} */
function headlinesAsHtml(items, title) {
  return (title ? "<p style=\"color: #52606f; margin: 6px 0 0 0\"><b>" + escaped(title) + "</b></p>" : "")
    + items.map(function (item) {
      return "<p style=\"margin: 6px 0 0 0\"><b style=\"color: #123a6b\">" + escaped(item.title) + "</b><br/>"
        + escaped(item.description) + "</p>";
    }).join("");
}

/** Empty if there is no weather in the feed.
 * @param {KestWeather} report @return {string} */
function weatherAsHtml(report) {
  if (report.currentTemp === undefined) {
    return "";
  }
  var unit = "\u00a0\u00b0" + (report.tempUnit || "");
  var details = [
    report.humidity === undefined ? "" : "Humidity " + report.humidity + "\u00a0%",
    report.windSpeed === undefined ? "" : "Wind " + report.windSpeed + "\u00a0" + (report.speedUnit || "")
      + (report.windDirection === undefined ? "" : " from the " + compassPoint(report.windDirection)),
    report.low === undefined || report.high === undefined ? "" : "Forecast " + report.low + " to " + report.high + unit
      + (report.fcondition ? ", " + report.fcondition.toLowerCase() : "")
  ];
  return boxed("#e3eefb", "<tr><td><b style=\"font-size: 11pt\">" + escaped(report.city) + "</b><br/>"
    + escaped(report.condition) + "</td><td align=\"right\"><span style=\"font-size: 17pt; color: #123a6b\">"
    + escaped(report.currentTemp + unit) + "</span></td></tr><tr><td colspan=\"2\">"
    + details.filter(Boolean).map(escaped).join("<br/>") + "</td></tr>");
}

/** @param {number} degrees where the wind comes from, 0 being the north @return {string} */
function compassPoint(degrees) {
  var points = ["north", "north-east", "east", "south-east", "south", "south-west", "west", "north-west"];
  return points[(Math.round(degrees / 45) % 8 + 8) % 8];
}
