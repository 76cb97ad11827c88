"use strict";
// Makes the table one to search and to open. Every text is a device's: it is put on the page as text, never as markup.
(() => {
  const data = JSON.parse(document.getElementById("data").textContent);
  const table = document.querySelector("table");
  const rows = [];    // of parameters, in the order of the data's details
  const groups = [];  // of rows: the objects
  const state = { words: [], filter: data.sides.length > 1 && table.querySelector(".changed") ? "changed" : "all",
                  prefix: "" };

  function element(name, attributes = {}, ...children) {
    const made = document.createElement(name);
    for (const [key, value] of Object.entries(attributes)) made.setAttribute(key, value);
    made.append(...children);
    return made;
  }

  // ---- Rows ----

  function takeRows() {
    for (const body of table.tBodies) {
      const group = { body, path: body.rows[0].textContent, rows: [] };
      groups.push(group);
      for (const line of [...body.rows].slice(1)) {
        const name = line.cells[0];
        const row = { line, group, path: group.path + name.textContent, detail: data.details[rows.length] };
        row.button = element("button", { class: "row", type: "button", "aria-expanded": "false" }, name.textContent);
        name.replaceChildren(row.button);
        line.addEventListener("click", () => { if (getSelection().isCollapsed) toggle(row); });
        rows.push(row);
        group.rows.push(row);
      }
    }
  }

  // What a narrow window lays out otherwise stays a table.
  function keepRoles() {
    const roles = { TABLE: "table", TBODY: "rowgroup", TR: "row", TH: "rowheader", TD: "cell" };
    for (const part of [table, ...table.querySelectorAll("tbody, tbody tr, tbody th, tbody td")])
      part.setAttribute("role", roles[part.tagName]);
  }

  // All that a row is found by, in small letters.
  function textOf(row) {
    row.text ??= [row.path, ...[...row.line.querySelectorAll(".v")].map((cell) => cell.textContent),
                  ...sidesOf(row).flat(2), row.detail.handler].join("\n").toLowerCase();
    return row.text;
  }

  function sidesOf(row) { return row.detail.sides.map((side) => side ?? row.detail.sides[0]); }

  // ---- What a value was read from ----

  function source([kind, name, finding], differs) {
    const classes = [kind === "missing" && "gone", differs && "differs"].filter(Boolean).join(" ");
    const text = element("dd", classes ? { class: classes } : {}, name);
    if (finding) text.append(element("span", { class: "found" }, " " + finding));
    return [element("dt", {}, kind), text];
  }

  function fullDetail(row) {
    const { detail } = row;
    const list = element("dl", { class: "sources" });
    const add = (name, value) => { if (value) list.append(element("dt", {}, name), element("dd", {}, value)); };
    add("path", row.path);
    add("also", detail.also.join("\n"));
    for (const mark of row.line.querySelectorAll(".mark[title]")) add("invalid", mark.title);
    add("handler", detail.handler + (detail.defined ? `, ${detail.defined}` : ""));
    for (const cell of row.line.querySelectorAll(".v"))
      if (cell.querySelector(".long")) add("value", cell.querySelector(".long").textContent);
    const sides = sidesOf(row);
    const same = sides.length === 2 && detail.sides[1] === null;
    const texts = sides.map((side) => new Set(side.map(String)));
    sides.slice(0, same ? 1 : 2).forEach((side, i) => {
      if (data.sides.length > 1)
        list.append(element("dt", { class: "side" }, same ? "Read from, both alike" : `Read from, ${data.sides[i]}`));
      for (const one of side) list.append(...source(one, !same && sides.length > 1 && !texts[1 - i].has(String(one))));
      if (!side.length) list.append(element("dt", {}, "read"), element("dd", { class: "note" }, "from nothing outside"));
    });
    return list;
  }

  function toggle(row) {
    const open = row.button.getAttribute("aria-expanded") === "false";
    row.button.setAttribute("aria-expanded", String(open));
    if (open) {
      row.open = element("tr", { class: "detail", role: "row" },
                         element("td", { colspan: row.line.cells.length, role: "cell" }, fullDetail(row)));
      row.line.after(row.open);
    } else {
      row.open.remove();
      row.open = null;
    }
  }

  // ---- Which rows are shown ----

  const filters = [["all", "All"], ["changed", "Changed"], ["moved", "Moved"], ["fault", "Faults"], ["invalid", "Invalid"],
                   ["missing", "Source missing"], ["writable", "Writable"]];

  function passes(row, filter) { return filter === "all" || row.line.classList.contains(filter); }
  function matches(row) { return state.words.every((word) => textOf(row).includes(word)); }

  function makeFilters() {
    const place = document.getElementById("filters");
    for (const [filter, name] of filters) {
      if ((filter === "changed" || filter === "moved") && data.sides.length < 2) continue;
      const button = element("button", { type: "button", class: filter }, name, element("span", { class: "count" }));
      if (filter !== "all" && filter !== "writable") button.prepend(element("i"));
      button.addEventListener("click", () => { state.filter = filter; show(); });
      place.append(button);
    }
  }

  // How many of the rows that are searched and chosen each filter has.
  function countFilters(found) {
    for (const button of document.querySelectorAll("#filters button")) {
      const filter = button.className;
      const count = found.filter((row) => passes(row, filter)).length;
      button.querySelector(".count").textContent = count;
      button.setAttribute("aria-pressed", String(filter === state.filter));
      button.disabled = count === 0 && filter !== state.filter && filter !== "all";
    }
  }

  function showRow(row, shown) {
    row.line.hidden = !shown;
    if (row.open) row.open.hidden = !shown;
  }

  function tellStatus(shown) {
    const status = document.getElementById("status");
    status.replaceChildren(shown === rows.length ? `${shown} values` :
                           `${shown} of ${rows.length} values`);
    if (state.prefix) status.append(" in ", element("b", {}, state.prefix));
    if (state.words.length) status.append(" with ", element("b", {}, state.words.join(" ")));
    if (shown === rows.length) return;
    const all = element("button", { type: "button" }, "Show all");
    all.addEventListener("click", showAll);
    status.append(all);
  }

  function showAll() {
    const search = document.getElementById("search");
    search.value = "";
    Object.assign(state, { words: [], filter: "all", prefix: "" });
    show();
    search.focus();
  }

  function show() {
    const found = rows.filter(matches);
    const chosen = found.filter((row) => row.group.path.startsWith(state.prefix));
    countFilters(chosen);
    const shown = new Set(chosen.filter((row) => passes(row, state.filter)));
    for (const row of rows) showRow(row, shown.has(row));
    for (const group of groups) group.body.hidden = !group.rows.some((row) => shown.has(row));
    tree.count(found.filter((row) => passes(row, state.filter)));
    tree.choose(state.prefix);
    tellStatus(shown.size);
  }

  // ---- The tree ----

  const tree = {
    place: document.getElementById("tree"),
    nodes: new Map(),  // by the object's path

    make() {
      for (const group of groups) this.node(group.path);
      this.place.addEventListener("click", (event) => this.clicked(event));
      this.place.addEventListener("keydown", (event) => this.pressed(event));
      this.focusable(this.place.firstElementChild);
    },

    // The object's item, made with its parents'.
    node(path) {
      if (this.nodes.has(path)) return this.nodes.get(path);
      const end = path.lastIndexOf(".", path.length - 2) + 1;
      const parent = end > 0 ? this.node(path.slice(0, end)) : null;
      const level = path.split(".").length - 1;
      const node = element("li", { role: "treeitem", "aria-level": level, "aria-selected": "false", tabindex: "-1" },
                           element("div", {}, element("span", { class: "name" }, path.slice(end, -1)),
                                   element("span", { class: "count" })));
      node.firstChild.style.setProperty("--level", level);
      node.path = path;
      this.nodes.set(path, node);
      if (!parent) {
        this.place.append(node);
      } else {
        if (!parent.hasAttribute("aria-expanded")) {
          parent.setAttribute("aria-expanded", String(level === 2));
          parent.append(element("ul", { role: "group" }));
        }
        parent.lastChild.append(node);
      }
      return node;
    },

    // How many of these rows each object has.
    count(found) {
      const counts = new Map();
      for (const row of found)
        for (let node = this.nodes.get(row.group.path); node; node = node.parentElement.closest("li"))
          counts.set(node, (counts.get(node) ?? 0) + 1);
      for (const node of this.nodes.values()) {
        const count = counts.get(node) ?? 0;
        node.querySelector(".count").textContent = count;
        node.classList.toggle("none", count === 0);
      }
    },

    choose(path) {
      for (const node of this.nodes.values()) node.setAttribute("aria-selected", String(node.path === path));
    },

    focusable(node) {
      this.place.querySelector("[tabindex='0']")?.setAttribute("tabindex", "-1");
      node?.setAttribute("tabindex", "0");
      return node;
    },

    expand(node, open) { if (node.hasAttribute("aria-expanded")) node.setAttribute("aria-expanded", String(open)); },
    isOpen(node) { return node.getAttribute("aria-expanded") === "true"; },

    select(node) {
      state.prefix = state.prefix === node.path ? "" : node.path;
      show();
      document.querySelector("main").scrollTo(0, 0);
    },

    clicked(event) {
      const node = event.target.closest("li");
      if (!node) return;
      this.focusable(node).focus();
      const onArrow = event.clientX < node.querySelector(".name").getBoundingClientRect().left;
      if (onArrow) return this.expand(node, !this.isOpen(node));
      this.expand(node, true);
      this.select(node);
    },

    pressed(event) {
      const node = event.target.closest("li");
      const items = [...this.place.querySelectorAll("li")].filter((item) => item.offsetParent !== null);
      const at = items.indexOf(node);
      const ways = {
        ArrowDown: () => items[at + 1],
        ArrowUp: () => items[at - 1],
        Home: () => items[0],
        End: () => items[items.length - 1],
        ArrowRight: () => (this.isOpen(node) ? node.querySelector("li") : this.expand(node, true)),
        ArrowLeft: () => (this.isOpen(node) ? this.expand(node, false) : node.parentElement.closest("li")),
        Enter: () => this.select(node),
        " ": () => this.select(node),
      };
      if (!ways[event.key] || event.ctrlKey || event.altKey || event.metaKey) return;
      event.preventDefault();
      const next = ways[event.key]();
      if (next) this.focusable(next).focus();
    },
  };

  // ---- The page ----

  function view() {
    const profiles = location.hash === "#profiles";
    document.getElementById("values").hidden = profiles;
    document.getElementById("profiles").hidden = !profiles;
    for (const link of document.querySelectorAll("nav a"))
      link.setAttribute("aria-current", (link.hash === "#profiles") === profiles ? "page" : "false");
  }

  function listen() {
    const search = document.getElementById("search");
    search.addEventListener("input", () => {
      state.words = search.value.toLowerCase().split(/\s+/).filter(Boolean);
      show();
    });
    document.addEventListener("keydown", (event) => {
      if (event.key !== "/" || event.target === search || event.ctrlKey || event.altKey || event.metaKey) return;
      event.preventDefault();
      location.hash = "#values";
      view();
      search.focus();
      search.select();
    });
    const objects = document.getElementById("objects");
    objects.addEventListener("click", () => {
      objects.setAttribute("aria-expanded", String(objects.getAttribute("aria-expanded") === "false"));
    });
    addEventListener("hashchange", view);
  }

  takeRows();
  keepRoles();
  makeFilters();
  tree.make();
  listen();
  show();
  view();
  document.documentElement.classList.replace("plain", "live");
})();
