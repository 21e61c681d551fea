// The Programs menu, and icons out of programs and shortcuts.
var iconFile = "images/icon.png"; // in the application directory, only until it is shown

var programsPage = {
  prepare: function () {
    cacheProgramsFolder();
    widget.menuButton.clicked.connect(this, this.openMenu);
    widget.iconButton.clicked.connect(this, this.showIcon);
    widget.iconSource.returnPressed.connect(this, this.showIcon);
  },

  tryOut: function () {
    this.showIcon();
    this.openMenu();
  },

  openMenu: function () {
    openProgramsFolder();
  },

  showIcon: function () {
    var source = widget.iconSource.text;
    widget.iconPicture.resource = "";
    extractIcon(this, function (result) {
      // A file of another kind says "true" even if it has no icon.
      getFiles("images/", "icon.png", this, function (files) {
        if (files.length > 0) {
          widget.iconPicture.resource = iconFile;
          deleteFile(iconFile);
        }
        tell("Programs", widget.programsResult, files.length > 0
          ? "The icon of " + nameOf(source) + "."
          : nameOf(source) + " has no icon (" + result + ").");
      });
    }, source, iconFile, false, true);
  }
};
