// Answers the dialogs of the tour: holm run --robot widgets/tour/robot.js widgets/tour --once
// They come in the order of the pages' buttons. The run fails if one is not as expected on a new device.
var answers = [
  function () {
    robot.type("Coffee");
    robot.accept();
  },
  function () {
    robot.key("Up");
    robot.key("PgUp");
    robot.accept();
  },
  function () {
    expectRows(["Small", "Medium", "Large"]);
    robot.click("Large");
  },
  // The line edit comes after the list. What is in it is selected, so that the next entry replaces it.
  function () {
    robot.key("Tab");
    robot.type("Bread\nOlive oil\n");
    expectRows(["Bread", "Olive oil"]);
    robot.accept();
  },
  // Up to where all folders of the handheld are, and back.
  function () {
    expectRows(["..", "Shopping.txt", "Welcome.txt"]);
    robot.click("..");
    robot.click("My Documents");
    robot.click("Shopping.txt");
  },
  // What is typed is looked for; the key down goes on to it.
  function () {
    robot.type("mag");
    robot.key("Down");
    robot.key("Return");
  },
  // Into a folder and back, and then a program.
  function () {
    expectRows(["Accessories", "Settings", "Hello", "Music Player"]);
    robot.click("Settings");
    expectRows(["Back", "Network", "Radios Off", "Radios On", "Silent", "Sound On", "Vibrate"]);
    robot.click("Back");
    robot.click("Hello");
  }
];

robot.onDialog(function (dialog) {
  var answer = answers.shift();
  if (!answer) {
    throw new Error("There is one dialog too many: " + dialog.windowTitle);
  }
  answer();
});

/** @param {string[]} expected */
function expectRows(expected) {
  var rows = robot.rows().join(", ");
  print("The robot sees: " + rows);
  if (rows !== expected.join(", ")) {
    throw new Error("The rows should have been: " + expected.join(", "));
  }
}
