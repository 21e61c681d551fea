// The windows of running programs: a click brings one to the front, or closes it.
var tasksPage = {
  rows: 4,
  first: 0, // of the tasks that are shown
  /** @type {KestRunningProcess[]} */
  tasks: [],

  prepare: function () {
    widget.refreshButton.clicked.connect(this, this.refresh);
    widget.moreButton.clicked.connect(this, this.showMore);
    widget.pictureChooser["activated(int)"].connect(this, this.refresh);
    for (var row = 0; row < this.rows; ++row) {
      this.prepareRow(row);
    }
    widget.pageChooser["currentIndexChanged(int)"].connect(function () {
      if (tourPages[widget.pageChooser.currentIndex] === tasksPage) {
        tasksPage.refresh();
      }
    });
  },

  tryOut: function () {}, // to show the page is to refresh it

  /** @param {number} row */
  prepareRow: function (row) {
    widget["taskName" + row].clicked.connect(function () {
      focusWindow(tasksPage.tasks[tasksPage.first + row]);
    });
    widget["taskClose" + row].clicked.connect(function () {
      closeWindow(tasksPage.tasks[tasksPage.first + row]);
      setTimeout(function () {
        tasksPage.refresh();
      }, 300);
    });
  },

  refresh: function () {
    /** @type {("snapshots" | "icons" | "none")[]} */
    var modes = ["snapshots", "icons", "none"];
    runningProcesses("task", modes[widget.pictureChooser.currentIndex], this, function (tasks) {
      tasksPage.tasks = tasks;
      tasksPage.showFrom(0);
      tell("Tasks", widget.tasksResult, tasks.length === 1 ? "One window." : tasks.length + " windows.");
    }, this.tasks);
  },

  showMore: function () {
    var next = this.first + this.rows;
    this.showFrom(next < this.tasks.length ? next : 0);
  },

  /** @param {number} first */
  showFrom: function (first) {
    tasksPage.first = first;
    for (var row = 0; row < this.rows; ++row) {
      var task = this.tasks[first + row];
      widget["task" + row].visible = task !== undefined;
      widget["taskName" + row].text = task ? task.name.replace(/&/g, "&&") : "";
      widget["taskPicture" + row].visible = Boolean(task && task.imgRes);
      widget["taskPicture" + row].resource = task && task.imgRes || "";
    }
    widget.moreButton.enabled = this.tasks.length > this.rows;
  }
};
