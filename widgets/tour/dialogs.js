// Asks the user. A call waits for the answer, so each of them comes back with what the user said.
var dialogsPage = {
  prepare: function () {
    widget.askTextButton.clicked.connect(this, this.askText);
    widget.askNumberButton.clicked.connect(this, this.askNumber);
    widget.chooseButton.clicked.connect(this, this.choose);
    widget.editListButton.clicked.connect(this, this.editList);
    widget.browseButton.clicked.connect(this, this.browse);
  },

  // With nobody there, each dialog is cancelled; robot.js beside this file answers them.
  tryOut: function () {
    this.askText();
    this.askNumber();
    this.choose();
    this.editList();
    this.browse();
  },

  askText: function () {
    textInput("What do you want to drink?", "Tea", this, function (ok, text) {
      this.say("The text", ok, "\"" + text + "\"");
    });
  },

  // Only a minimum: with a maximum, too, the minimum would be the only number to choose from.
  askNumber: function () {
    numInput(this, function (ok, number) {
      this.say("The number", ok, String(number));
    }, "How many cups?", 1, 1);
  },

  choose: function () {
    listInput(this, function (ok, size, index) {
      this.say("The choice", ok, size + ", number " + (index + 1));
    }, "Which size?", 1, ["Small", "Medium", "Large"]);
  },

  // What the user confirms is stored before the callback is called.
  editList: function () {
    listInput(this, function (ok) {
      getConfig("tour", this, function (values) {
        this.say("The list", ok, values[0] ? values[0].split(";").join(", ") : "empty");
      }, "shopping");
    }, "What do you need?", 0, "tour", "shopping", ";", false, true, true);
  },

  browse: function () {
    browseFiles(this, function (path) {
      this.say("The file", path !== null, nameOf(path || ""));
    }, "\\My Documents", "*.txt");
  },

  /** @param {string} what @param {boolean} ok @param {string} answer */
  say: function (what, ok, answer) {
    tell("Dialogs", widget.dialogsResult, what + (ok ? " is " + answer + "." : " was cancelled."));
  }
};
