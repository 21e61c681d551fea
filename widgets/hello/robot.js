// Says who is there, as a person would: holm run --robot widgets/hello/robot.js widgets/hello
robot.onDialog(function () {
  robot.type("Ann");
  robot.accept();
});
