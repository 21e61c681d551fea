// Shows headlines and weather. They come from a server of the tour's own, on this machine: what fetches is
// plain HTTP that follows no redirects, to which few servers still answer, and so the page works without a
// network, too. An address typed in is asked for both.
var announcement = "HKCU\\Software\\Tour\\Address"; // where the server writes its address
var mostHeadlines = 50;

var feedsPage = {
  server: "", // its address, while it is known to run
  fetches: 0,
  /** Called when everything has been shown.
   * @param {boolean} failed */
  whenShown: function (failed) {},

  prepare: function () {
    widget.fetchButton.clicked.connect(this, this.fetch);
    widget.feedAddress.returnPressed.connect(this, this.fetch);
    widget.pages["currentChanged(int)"].connect(this, function (index) {
      if (tourPages[index] === feedsPage && feedsPage.fetches === 0) {
        this.fetch();
      }
    });
  },

  // Opening the page fetches.
  tryOut: function () {},

  fetch: function () {
    var page = this;
    var number = ++feedsPage.fetches;
    var address = widget.feedAddress.text.replace(/^\s+|\s+$/g, "");
    widget.feedsResult.text = "Fetching...";
    if (address) {
      this.load(number, address, address);
      return;
    }
    withSampleServer(function (server) {
      page.load(number, server + "headlines.xml", server + "weather.xml");
    }, function (problem) {
      page.show(number, [], "", {}, [problem]);
    });
  },

  /** @param {number} number @param {string} headlines @param {string} weather where to fetch them */
  load: function (number, headlines, weather) {
    var missing = 2;
    /** @type {string[]} */
    var problems = [];
    /** @type {KestFeedItem[]} */
    var items = [];
    var title = "";
    /** @type {KestWeather} */
    var report = {};
    var finish = function () {
      if (--missing === 0) {
        feedsPage.show(number, items, title, report, problems);
      }
    };
    getRSSFeed(headlines, this, firstCallOnly(function (error, result, feedTitle) {
      if (error) {
        problems.push(result);
      } else {
        items = result;
        title = feedTitle;
      }
      finish();
    }));
    getWeather(weather, this, firstCallOnly(function (error, result) {
      if (!error) {
        report = result;
      } else if (problems.indexOf(result) < 0) {
        problems.push(result);
      }
      finish();
    }));
  },

  /** @param {number} number @param {KestFeedItem[]} items @param {string} title @param {KestWeather} report
   * @param {string[]} problems */
  show: function (number, items, title, report, problems) {
    if (number !== feedsPage.fetches) {
      return; // another fetch has been started since
    }
    widget.feedsView.html = problems.map(problemAsHtml).join("") + weatherAsHtml(report)
      + headlinesAsHtml(items.slice(0, mostHeadlines), title);
    var found = items.length + (items.length === 1 ? " headline" : " headlines")
      + (items.length > mostHeadlines ? ", the first " + mostHeadlines + " above" : "")
      + (report.currentTemp === undefined ? "." : " and the weather.");
    tell("Feeds", widget.feedsResult, problems.length > 0 ? "Something could not be fetched." : found);
    problems.forEach(function (problem) { print("Feeds: " + problem); });
    feedsPage.whenShown(problems.length > 0);
  }
};

/** Those who wait for the sample server to start.
 * @type {{use: (address: string) => void, fail: (problem: string) => void}[]} */
var waiting = [];

/** Starts the sample server, unless it runs, and passes on its address, or what went wrong.
 * @param {(address: string) => void} use @param {(problem: string) => void} fail */
function withSampleServer(use, fail) {
  if (feedsPage.server) {
    use(feedsPage.server);
    return;
  }
  waiting.push({ use: use, fail: fail });
  if (waiting.length === 1) {
    startSampleServer();
  }
}

function startSampleServer() {
  /** @type {string[]} */
  var programs = [];
  // Beside holm, as seen from the application directory.
  getFiles("../../bin/", "holm-sampleserver", widget, function (files) { programs = files; });
  if (programs.length === 0) {
    serverFailed("There is no holm-sampleserver beside holm. Type the address of a feed above.");
    return;
  }
  writeReg(announcement, ""); // an earlier one's
  launch(programs[0]);
  var tries = 0;
  var timer = setInterval(function () {
    var address = valueAt(announcement);
    if (address) {
      clearInterval(timer);
      serverStarted(String(address));
    } else if (++tries === 100) {
      clearInterval(timer);
      serverFailed("The sample server did not start within ten seconds.");
    }
  }, 100);
}

/** @param {string} address */
function serverStarted(address) {
  holdServer(address);
  waiting.splice(0).forEach(function (waiter) { waiter.use(address); });
}

/** @param {string} problem */
function serverFailed(problem) {
  waiting.splice(0).forEach(function (waiter) { waiter.fail(problem); });
}

/** The server ends when nobody has been connected for a while. This fetch is never answered, so it fails only
 * when the server is gone.
 * @param {string} address */
function holdServer(address) {
  feedsPage.server = address;
  getUrl(address + "stay", widget, firstCallOnly(function () {
    if (feedsPage.server === address) {
      feedsPage.server = "";
    }
  }));
}

/** After a fetch has failed, there is a second call, with what had come by then. That is not wanted here.
 * @param {(error: boolean, result: any, title?: string) => void} callback */
function firstCallOnly(callback) {
  var wasCalled = false;
  return function (error, result, title) {
    if (!wasCalled) {
      wasCalled = true;
      callback(error, result, title);
    }
  };
}
