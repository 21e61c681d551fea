// Lists files and folders, and deletes a file where that is allowed.
var filesPage = {
  prepare: function () {
    widget.listFilesButton.clicked.connect(this, this.listFiles);
    widget.folder.returnPressed.connect(this, this.listFiles);
    widget.filter.returnPressed.connect(this, this.listFiles);
    widget.listFoldersButton.clicked.connect(this, this.listFolders);
    widget.deleteFileButton.clicked.connect(this, this.remove);
  },

  tryOut: function () {
    this.listFiles();
  },

  // Without a path the functions would list nothing, and not call back either.
  folder: function () {
    return widget.folder.text || "./";
  },

  listFiles: function () {
    getFiles(this.folder(), widget.filter.text, this, function (paths) {
      this.show(paths, paths.length === 1 ? "file" : "files");
    });
  },

  listFolders: function () {
    getDirs(this.folder(), this, function (paths) {
      this.show(paths, paths.length === 1 ? "folder" : "folders");
    });
  },

  /** @param {string[]} paths @param {string} kind */
  show: function (paths, kind) {
    widget.fileList.plainText = paths.map(nameOf).join("\n");
    tell("Files", widget.filesResult, paths.length + " " + kind + " in " + this.folder());
  },

  // Only what is inside the application directory may go; everything else is refused with a message.
  remove: function () {
    var path = widget.fileToDelete.text;
    deleteFile(path);
    getFiles(folderOf(path), nameOf(path), this, function (left) {
      tell("Files", widget.filesResult, nameOf(path) + (left.length > 0 ? " is still there." : " is gone."));
    });
  }
};

/** @param {string} path */
function nameOf(path) {
  return path.replace(/^.*[\\\/]/, "");
}

/** @param {string} path */
function folderOf(path) {
  return path.slice(0, path.length - nameOf(path).length) || "./";
}
