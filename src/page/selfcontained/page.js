// Runs the slide show: one slide on show, the next one every 4 s while the visitor lets it play,
// and each photo asked for only when it is about to show.
(() => {
  const root = document.querySelector('.carousel');
  const slides = [...root.querySelectorAll('.slide')];
  const dots = [...root.querySelectorAll('.dot')];
  const pause = root.querySelector('.pause');
  const live = root.querySelector('.slides');
  const count = slides.length;
  if (!count) return;
  const wrap = (i) => (i + count) % count;
  let current = 0;
  let timer = 0;
  // Visitors who asked for less motion start with the show paused; Play is theirs to press.
  let playing = !matchMedia('(prefers-reduced-motion: reduce)').matches;
  // Focus inside the carousel (other than on Pause itself) holds the show, so that nothing moves
  // away from under the keyboard or a screen reader.
  let holding = false;

  const load = (i) => {
    const img = slides[wrap(i)].querySelector('img');
    if (img.dataset.src) {
      img.src = img.dataset.src;
      img.removeAttribute('data-src');
    }
    return img;
  };
  // The neighbours are asked for once the photo on show is in, which leaves it the bandwidth.
  const loadAround = (back) => {
    const near = () => {
      load(current + 1);
      if (back) load(current - 1);
    };
    load(current).decode().then(near, near);
  };

  const schedule = () => {
    clearTimeout(timer);
    const moving = playing && !holding;
    pause.textContent = playing ? 'Pause' : 'Play';
    live.setAttribute('aria-live', moving ? 'off' : 'polite');
    if (moving) timer = setTimeout(() => show(current + 1), 4000);
  };

  const show = (i) => {
    slides[current].classList.remove('on');
    dots[current].removeAttribute('aria-current');
    current = wrap(i);
    slides[current].classList.add('on');
    dots[current].setAttribute('aria-current', 'true');
    loadAround(true);
    schedule();
  };

  root.querySelector('.prev').addEventListener('click', () => show(current - 1));
  root.querySelector('.next').addEventListener('click', () => show(current + 1));
  dots.forEach((dot, i) => dot.addEventListener('click', () => show(i)));
  pause.addEventListener('click', () => {
    playing = !playing;
    schedule();
  });
  root.addEventListener('focusin', (event) => {
    holding = event.target !== pause;
    schedule();
  });
  root.addEventListener('focusout', (event) => {
    if (root.contains(event.relatedTarget)) return;
    holding = false;
    schedule();
  });

  document.addEventListener('keydown', (event) => {
    const step = { ArrowLeft: -1, ArrowRight: 1 }[event.key];
    if (!step || event.altKey || event.ctrlKey || event.metaKey) return;
    event.preventDefault();
    show(current + step);
    // On an indicator, the focus moves along to the new slide's.
    if (dots.includes(document.activeElement)) dots[current].focus();
  });

  // A swipe across the photo moves to the neighbour on that side.
  const stage = root.querySelector('.stage');
  let startX = 0;
  stage.addEventListener('touchstart', (event) => {
    startX = event.touches[0].clientX;
  }, { passive: true });
  stage.addEventListener('touchend', (event) => {
    const moved = event.changedTouches[0].clientX - startX;
    if (Math.abs(moved) > 40) show(current + (moved < 0 ? 1 : -1));
  });

  loadAround(false);
  schedule();
})();
