// The tour: one page for each subsystem, and a file beside this one for each page.
// With "--once" it goes through all pages by itself, tells what it did, and ends.
include("welcome.js");
include("configuration.js");
include("files.js");
include("launching.js");
include("registry.js");
include("dialogs.js");
include("device.js");
include("organizer.js");
include("programs.js");
include("tasks.js");
include("feeds.js");
include("feedshtml.js");

// In the order of the page chooser.
var tourPages = [
  welcomePage, configurationPage, filesPage, launchingPage, registryPage, dialogsPage, devicePage, organizerPage,
  programsPage, tasksPage, feedsPage
];

/** @param {number} index */
function showPage(index) {
  widget.pageChooser.currentIndex = index;
}

/** Shows what happened in a label, and prints it.
 * @param {string} page @param {{text: string}} label @param {string} text */
function tell(page, label, text) {
  label.text = text;
  print(page + ": " + text);
}

// On a screen with twice as many dots the picture has more, too.
if (widget.logo.height > 48) {
  widget.logo.resource = "images/app/exe.vga.png";
}

tourPages.forEach(function (page) {
  page.prepare();
});

if (args[0] === "--once") {
  feedsPage.whenShown = function (failed) {
    // After the page has been painted, for a screenshot.
    setTimeout(quit, 0, failed ? 1 : 0);
  };
  tourPages.forEach(function (page, index) {
    showPage(index);
    page.tryOut();
  });
  // Answering the dialogs may have taken any time.
  setTimeout(function () {
    print("Feeds: nothing has been shown after 15 seconds.");
    quit(1);
  }, 15000);
}
