// Reads and writes a value of the registry, and tells how it changes while it is watched.
var registryPage = {
  watchedPath: "", // empty: none

  prepare: function () {
    widget.readValueButton.clicked.connect(this, this.read);
    widget.registryPath.returnPressed.connect(this, this.read);
    widget.writeValueButton.clicked.connect(this, this.write);
    widget.registryValue.returnPressed.connect(this, this.write);
    widget.watchButton.toggled.connect(this, this.watch);
  },

  // The value is put back as it was.
  tryOut: function () {
    this.read();
    var path = widget.registryPath.text;
    var value = valueAt(path);
    if (value) {
      widget.registryValue.text = "Good day";
      this.write();
      writeReg(path, value);
      this.read();
    }
  },

  read: function () {
    var path = widget.registryPath.text;
    var value = valueAt(path);
    if (value !== null && value !== undefined) {
      widget.registryValue.text = String(value);
    }
    this.say(nameOf(path) + " is " + asShown(value) + ".");
  },

  write: function () {
    var path = widget.registryPath.text;
    var text = widget.registryValue.text;
    writeReg(path, /^-?\d+$/.test(text) ? Number(text) : text);
    this.say(nameOf(path) + " is " + asShown(valueAt(path)) + ".");
  },

  /** @param {boolean} on */
  watch: function (on) {
    if (registryPage.watchedPath) {
      regEventUnSuscribe(widget, registryPage.watchedPath);
      registryPage.watchedPath = "";
      this.say("Watching has ended.");
    }
    var path = widget.registryPath.text;
    if (on && valueAt(path) === undefined) {
      widget.watchButton.checked = false;
      this.say("There is no such key to watch.");
    } else if (on) {
      regEventSuscribe(widget, showChange, path);
      registryPage.watchedPath = path;
      this.say("Watching " + nameOf(path) + ".");
    }
  },

  /** @param {string} text */
  say: function (text) {
    tell("Registry", widget.registryResult, text);
  }
};

// "Before" is the value from when the watching began.
/** @param {string} path @param {string | number | undefined} before @param {string | number | undefined} now */
function showChange(path, before, now) {
  registryPage.say(nameOf(path) + " was " + asShown(before) + ", now it is " + asShown(now) + ".");
}

/** What is there: null if the key has no such value, undefined if there is no such key.
 * @param {string} path @return {string | number | null | undefined} */
function valueAt(path) {
  var result = null; // of a missing value nothing is told
  readReg(path, {}, function (value) { result = value; });
  return result;
}

/** @param {string | number | null | undefined} value */
function asShown(value) {
  if (typeof value === "string") {
    return "\"" + value.replace(/\u0000$/, "") + "\"";
  }
  return typeof value === "number" ? String(value) : "missing";
}
