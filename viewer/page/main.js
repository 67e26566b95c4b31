// First of all modules: starts the others and says plainly when that can't be done.

function show(text) {
  const notice = document.getElementById('notice');
  notice.textContent = text;
  notice.hidden = false;
}

async function missingThree() {
  try {
    return !(await fetch('/three.module.js', { method: 'HEAD' })).ok;
  } catch {
    return false;
  }
}

if (await missingThree()) {
  show('three.js is not installed on this machine. Install it with "apt-get install libjs-three" and reload the page.');
} else {
  try {
    const { start } = await import('./app.js');
    start(show);
  } catch (error) {
    show(`The page could not start: ${error.message}`);
    throw error;
  }
}
