// Saves, reads and deletes one value of the configuration.
var configurationPage = {
  prepare: function () {
    widget.saveButton.clicked.connect(this, this.save);
    widget.value.returnPressed.connect(this, this.save);
    widget.readButton.clicked.connect(this, this.read);
    widget.deleteButton.clicked.connect(this, this.remove);
  },

  tryOut: function () {
    this.save();
  },

  save: function () {
    setConfig(widget.section.text, widget.key.text, widget.value.text);
    this.read();
  },

  read: function () {
    var key = widget.key.text;
    getConfig(widget.section.text, this, function (values) {
      tell("Configuration", widget.configurationResult, values[0] === null
        ? "There is no value \"" + key + "\"."
        : key + " is \"" + values[0] + "\".");
    }, key);
  },

  remove: function () {
    deleteConfig(widget.section.text, widget.key.text);
    this.read();
  }
};
