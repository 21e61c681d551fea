// What is coming up, and the contacts. Changes by other programs are seen at once.
var photoFile = "images/contact.png"; // in the application directory, only until it is shown

var organizerPage = {
  prepare: function () {
    widget.contactButton.clicked.connect(this, this.pickContact);
    poomEventSuscribe(widget, this.showAgenda, "Appointments");
    poomEventSuscribe(widget, this.showAgenda, "Tasks");
    poomEventSuscribe(widget, this.showChange, "Contacts");
    this.showAgenda();
  },

  tryOut: function () {
    this.showAgenda();
    this.pickContact();
  },

  /** The next appointments and the open tasks, as rich text. Also called for each change, whose arguments it does
   * not need: it shows all anew. */
  showAgenda: function () {
    var found = { appointments: 0, tasks: 0 };
    var html = "";
    getAppointments(widget, function (appointments) {
      found.appointments = appointments.length;
      html += agendaAsHtml("Appointments", appointments.map(function (appointment) {
        return { when: appointment.startDate, what: appointment.subject, isLate: false };
      }));
    }, 5, "ddd d MMM,", "HH:mm");
    // The longest lists: one task less than the count.
    ["Overdued", "NotDued"].forEach(function (filter) {
      getTasks(widget, function (tasks) {
        found.tasks += tasks.length;
        html += agendaAsHtml(filter === "Overdued" ? "Overdue" : "To do", tasks.map(function (task) {
          return {
            when: /4501/.test(task.dueDate) ? "any day" : task.dueDate.replace(/ \d+$/, ""),
            what: task.subject,
            isLate: filter === "Overdued"
          };
        }));
      }, filter, 6, "ddd d MMM yyyy");
    });
    widget.agenda.html = html;
    organizerPage.say(found.appointments + " appointments and " + found.tasks + " tasks.");
  },

  /** @param {number} zero @param {number} oid */
  showChange: function (zero, oid) {
    organizerPage.say("Contact " + oid + " has changed.");
  },

  pickContact: function () {
    selectContact(this, function (oid) {
      if (oid === 0) {
        this.say("No contact was chosen.");
        return;
      }
      contactInfo(oid, this, this.showDetails);
      this.showPhoto(oid);
    });
  },

  /** @param {KestContact | null} contact null if it has been deleted meanwhile */
  showDetails: function (contact) {
    if (contact === null) {
      return;
    }
    var details = [
      contact.jobTitle,
      contact.mobileTelephoneNumber,
      contact.email1Address.replace("@", "@\u200b"), // where a long one may be broken
      contact.birthday && "born " + contact.birthday
    ];
    widget.contactDetails.text = "<b>" + escaped(contact.fileAs) + "</b><br/>"
      + details.filter(Boolean).map(escaped).join("<br/>");
    this.say(contact.fileAs + ", " + (contact.mobileTelephoneNumber || "no mobile telephone") + ".");
  },

  /** @param {number} oid */
  showPhoto: function (oid) {
    contactImage(this, function (result) {
      widget.contactPhoto.resource = "";
      widget.contactPhoto.visible = result === "true";
      if (result === "true") {
        widget.contactPhoto.resource = photoFile;
        deleteFile(photoFile);
      }
    }, oid, photoFile, false);
  },

  /** @param {string} text */
  say: function (text) {
    tell("Organizer", widget.organizerResult, text);
  }
};

/** @param {string} title @param {{when: string, what: string, isLate: boolean}[]} entries @return {string} */
function agendaAsHtml(title, entries) {
  return entries.length === 0 ? "" : "<p style=\"color: #52606f; margin: 4px 0 0 0\"><b>" + title + "</b></p>"
    + "<table width=\"100%\" cellspacing=\"0\" cellpadding=\"1\">" + entries.map(function (entry) {
      return "<tr><td style=\"white-space: nowrap; color: " + (entry.isLate ? "#a32020" : "#1d63b8") + "\">"
        + escaped(entry.when) + "&nbsp; </td><td width=\"100%\">" + escaped(entry.what) + "</td></tr>";
    }).join("") + "</table>";
}
