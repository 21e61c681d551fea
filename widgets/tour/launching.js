// Starts a program with parameters, and opens a document.
var launchingPage = {
  prepare: function () {
    widget.startButton.clicked.connect(this, this.start);
    widget.parameters.returnPressed.connect(this, this.start);
    widget.openButton.clicked.connect(this, this.open);
  },

  // Not the document: that would open a program of the desktop, with nobody there to close it.
  tryOut: function () {
    this.start();
  },

  start: function () {
    launch(widget.program.text, widget.parameters.text);
    tell("Launching", widget.launchingResult, "Launched " + nameOf(widget.program.text) + ".");
  },

  open: function () {
    launch(widget.document.text);
    tell("Launching", widget.launchingResult, "Opened " + nameOf(widget.document.text) + ".");
  }
};
