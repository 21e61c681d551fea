// What the tour is, and how often it was opened: a count kept in the configuration.
var welcomePage = {
  prepare: function () {
    widget.welcomeText.linkActivated.connect(function (link) {
      showPage(Number(link));
    });
    getConfig("tour", this, function (values) {
      var count = (values[0] || 0) + 1;
      setConfig("tour", "runs", count);
      tell("Welcome", widget.runCount, count === 1
        ? "You opened the tour for the first time."
        : "You opened the tour " + count + " times.");
    }, "runs");
  },

  tryOut: function () {}
};
