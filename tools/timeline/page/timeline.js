// SPDX-License-Identifier: MIT
'use strict';
(() => {
  const page = document.querySelector('main');
  const plot = page.querySelector('.plot');
  const sheets = Array.from(plot.querySelectorAll('svg'));
  const beat = Number(page.dataset.beat), beats = Number(page.dataset.beats); // seconds; beats of a bar
  const calm = matchMedia('(prefers-reduced-motion: reduce)').matches;
  let level = 0;
  document.documentElement.classList.add('alive');
  plot.tabIndex = 0;
  plot.setAttribute('role', 'group');
  plot.setAttribute('aria-label', 'The show. Plus and minus zoom, arrow keys move.');

  const make = (name, kind, parent) => {
    const element = document.createElement(name);
    if (kind)
      element.className = kind;
    parent.append(element);
    return element;
  };
  const line = make('div', 'line', plot);
  const card = make('div', 'card', document.body);
  const strip = make('div', 'strip', document.body);
  const less = make('button', '', strip), more = make('button', '', strip), whole = make('button', '', strip);
  const readout = make('output', '', strip);
  const help = make('i', '', strip);
  less.textContent = '\u2212';
  less.title = 'zoom out';
  more.textContent = '+';
  more.title = 'zoom in';
  whole.textContent = 'whole show';
  line.hidden = card.hidden = true;

  // Titles become cards: the browser's own would come late and twice.
  for (const title of page.querySelectorAll('g > title')) {
    title.parentNode.dataset.card = title.textContent;
    title.parentNode.setAttribute('aria-label', title.textContent);
    title.parentNode.setAttribute('role', 'group');
    title.remove();
  }

  const scale = () => {
    const sheet = sheets[level], view = sheet.viewBox.baseVal, place = sheet.getBoundingClientRect();
    const ratio = place.width / view.width;
    const perSecond = Number(sheet.dataset.perSecond) * ratio;
    const zero = place.left + (Number(sheet.dataset.zero) - view.x) * ratio;
    return { zero, perSecond, start: Number(sheet.dataset.start) / 1000, end: Number(sheet.dataset.end) / 1000 };
  };
  const timeAt = (x) => {
    const s = scale();
    return s.start + (x - s.zero) / s.perSecond;
  };
  const placeOf = (time) => {
    const s = scale();
    return s.zero + (time - s.start) * s.perSecond;
  };

  const clock = (seconds) => {
    const ms = Math.round(seconds * 1000);
    const rest = String(ms % 60000 / 1000 | 0).padStart(2, '0') + '.' + String(ms % 1000).padStart(3, '0');
    return Math.floor(ms / 60000) + ':' + rest;
  };
  const nearestBeat = (time) => Math.round(time / beat);
  const tell = (time, word) => {
    const s = scale();
    if (time < s.start || time > s.end) {
      readout.textContent = time < s.start ? 'loading' : '';
      return;
    }
    const n = nearestBeat(time), bar = Math.floor(n / beats);
    readout.textContent = clock(time) + ' \u00b7 bar ' + bar + ', beat ' + (n - bar * beats + 1) + ' \u00b7 ' +
      Math.round(n * beat * 1000) + ' ms' + (word || '');
  };

  const width = () => plot.clientWidth;
  const settle = () => {
    less.disabled = whole.disabled = level === 0;
    more.disabled = level === sheets.length - 1;
    line.hidden = card.hidden = true;
    const tall = document.documentElement.scrollHeight > innerHeight + 1;
    help.textContent = (tall ? 'Ctrl and wheel' : 'wheel') + ' or + \u2212 zoom, drag or arrows move, ' +
      '0 shows all, a click copies the beat';
  };
  const zoom = (step, x) => {
    const next = Math.min(Math.max(level + step, 0), sheets.length - 1);
    if (next === level)
      return;
    const place = plot.getBoundingClientRect();
    if (x === undefined)
      x = place.left + width() / 2;
    const time = timeAt(x), before = scale().perSecond;
    sheets[level].classList.add('away');
    level = next;
    const sheet = sheets[level];
    sheet.classList.remove('away');
    plot.scrollLeft += placeOf(time) - x;
    if (!calm && sheet.animate) {
      const origin = (placeOf(time) - sheet.getBoundingClientRect().left) + 'px 0';
      sheet.animate([{ transformOrigin: origin, transform: 'scaleX(' + before / scale().perSecond + ')' },
        { transformOrigin: origin, transform: 'none' }], { duration: 160, easing: 'ease-out' });
    }
    settle();
  };
  const showAll = () => zoom(-sheets.length);

  let turned = 0;
  plot.addEventListener('wheel', (event) => {
    const tall = document.documentElement.scrollHeight > innerHeight + 1;
    if (event.shiftKey || Math.abs(event.deltaX) > Math.abs(event.deltaY) || (tall && !event.ctrlKey))
      return;
    event.preventDefault();
    turned += event.deltaMode ? event.deltaY * 40 : event.ctrlKey ? event.deltaY * 3 : event.deltaY;
    if (Math.abs(turned) < 60)
      return;
    zoom(turned < 0 ? 1 : -1, event.clientX);
    turned = 0;
  }, { passive: false });

  let held = null;
  plot.addEventListener('pointerdown', (event) => {
    if (event.button !== 0 || event.pointerType === 'touch')
      return;
    held = { x: event.clientX, y: event.clientY, moved: false };
    plot.setPointerCapture(event.pointerId);
  });
  plot.addEventListener('pointermove', (event) => {
    if (held) {
      held.moved = held.moved || Math.hypot(event.clientX - held.x, event.clientY - held.y) > 4;
      if (held.moved) {
        plot.classList.add('held');
        plot.scrollLeft -= event.movementX;
        scrollBy(0, -event.movementY);
        line.hidden = card.hidden = true;
        return;
      }
    }
    const place = plot.getBoundingClientRect();
    line.hidden = false;
    line.style.left = event.clientX - place.left + plot.scrollLeft + 'px';
    tell(timeAt(event.clientX));
  });
  const release = (event) => {
    if (held && !held.moved && event.type === 'pointerup') {
      const time = timeAt(event.clientX), s = scale();
      if (time >= s.start && time <= s.end && navigator.clipboard)
        navigator.clipboard.writeText(String(Math.round(nearestBeat(time) * beat * 1000)))
          .then(() => tell(time, ', copied'), () => {});
    }
    held = null;
    plot.classList.remove('held');
  };
  plot.addEventListener('pointerup', release);
  plot.addEventListener('pointercancel', release);
  plot.addEventListener('pointerleave', () => {
    line.hidden = true;
    readout.textContent = '';
  });

  document.addEventListener('pointermove', (event) => {
    const under = held && held.moved ? null : document.elementFromPoint(event.clientX, event.clientY);
    const group = under && under.closest('g[data-card]');
    card.hidden = !group;
    if (!group)
      return;
    const text = group.dataset.card, end = text.indexOf('\n');
    card.textContent = end < 0 ? '' : text.slice(end);
    const head = document.createElement('b');
    head.textContent = end < 0 ? text : text.slice(0, end);
    card.prepend(head);
    const x = event.clientX + 16, y = event.clientY + 18;
    const right = innerWidth - card.offsetWidth - 8, bottom = innerHeight - card.offsetHeight - 40;
    const left = x > right ? Math.max(8, event.clientX - card.offsetWidth - 12) : x;
    const top = y > bottom ? Math.max(8, event.clientY - card.offsetHeight - 12) : y;
    card.style.transform = 'translate(' + left + 'px,' + top + 'px)';
  });
  document.documentElement.addEventListener('pointerleave', () => { card.hidden = true; });

  document.addEventListener('keydown', (event) => {
    if (event.ctrlKey || event.metaKey || event.altKey)
      return;
    const pan = (way) => { plot.scrollLeft += way * width() * (event.shiftKey ? 0.9 : 0.15); };
    const deeds = {
      '+': () => zoom(1), '=': () => zoom(1), '-': () => zoom(-1), '0': showAll,
      'ArrowLeft': () => pan(-1), 'ArrowRight': () => pan(1),
      'Home': () => { plot.scrollLeft = 0; }, 'End': () => { plot.scrollLeft = plot.scrollWidth; },
    };
    const deed = deeds[event.key];
    if (!deed)
      return;
    event.preventDefault();
    card.hidden = true;
    deed();
  });
  more.addEventListener('click', () => zoom(1));
  less.addEventListener('click', () => zoom(-1));
  whole.addEventListener('click', showAll);
  addEventListener('resize', settle);
  settle();
})();
