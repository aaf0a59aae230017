const kSteps = { ArrowRight: 1, ArrowLeft: -1 };

/** Tabs that the arrow keys move between. @param onOpen called with the id of each panel when it is first opened */
export function watchTabs(tabs, onOpen) {
  const opened = new Set();
  const open = (wanted) => {
    for (const tab of tabs) {
      const isOpen = tab === wanted;
      tab.setAttribute("aria-selected", isOpen);
      tab.tabIndex = isOpen ? 0 : -1;
      document.getElementById(tab.getAttribute("aria-controls")).hidden = !isOpen;
    }
    const panel = wanted.getAttribute("aria-controls");
    if (!opened.has(panel)) onOpen(panel);
    opened.add(panel);
  };
  [...tabs].forEach((tab, i) => {
    tab.onclick = () => open(tab);
    tab.onkeydown = (event) => {
      const step = kSteps[event.key];
      if (!step) return;
      const next = tabs[(i + step + tabs.length) % tabs.length];
      next.focus();
      open(next);
    };
  });
}
