const kSkipped = 77;

/** Starts the browser. Ends the program with status 77 when playwright-core is not installed. */
export async function launch(chromium) {
  const playwright = await import("playwright-core").catch(() => {
    console.log("skipped: npm install --prefix tests/browser gives playwright-core");
    process.exit(kSkipped);
  });
  return playwright.chromium.launch({ executablePath: chromium, args: ["--no-sandbox"] });
}
