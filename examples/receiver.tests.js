// Tests of receiver.zorva: zorva test receiver.zorva receiver.tests.js
// They run every line of the form's script.

test("the form comes up with what its rows say", function(form) {
    form.expectText("frequency", "98.5 MHz");
    form.expectText("demodulation", "FM");
    form.expectEnabled("bfo", false);
    form.expectEnabled("deemphasis");
    form.expectEnabled("manualGain", false);
    form.expectEnabled("agcTime");
    form.expectEnabled("attenuation", false);
    form.expectMarks([]);
});

test("a typed frequency is sent", function(form) {
    form.enter("frequency", "145.5 MHz");
    form.expectValue("frequency", 145500000);
    form.expectMarks(["frequency"]);
    form.apply();
    expect(form.applied(), 1, "announcements");
    form.expectFetched("<Parameters><Tuner><Frequency>145500000</Frequency></Tuner></Parameters>");
    form.expectMarks([]);
});

test("changes apply themselves after the pause", function(form) {
    form.choose("antenna", "HF loop");
    form.advance(1400);
    expect(form.applied(), 0, "announcements before the end");
    form.click("preamplifier"); // begins the pause anew
    form.advance(1400);
    expect(form.applied(), 0, "announcements after another change");
    form.advance(100);
    expect(form.applied(), 1, "announcements at the end");
});

test("the demodulation limits the bandwidth", function(form) {
    form.choose("demodulation", "CW");
    form.expectText("bandwidth", "2.400 kHz");
    form.expectEnabled("bfo");
    form.expectEnabled("deemphasis", false);
    form.expectMarks(["demodulation", "bandwidth"]);
    form.choose("demodulation", "I/Q");
    form.expectText("bandwidth", "2.400 kHz");
});

test("a demodulation that the script does not know changes nothing", function(form) {
    form.overlay('<KVParamGui><Enums><Enum name="Demodulations"><EnumValue><DisplayName>Video</DisplayName>' +
        '<EnumIdentifier>DEMOD_TV</EnumIdentifier><Value>TV</Value></EnumValue></Enum></Enums></KVParamGui>');
    form.choose("demodulation", "Video");
    form.expectValue("bandwidth", 120000);
});

test("manual gain is for manual gain control", function(form) {
    form.choose("gainMode", "Manual (MGC)");
    form.expectEnabled("manualGain");
    form.expectEnabled("agcTime", false);
});

test("squelch and attenuation follow their boxes", function(form) {
    form.expectEnabled("squelchLevel");
    form.click("squelch");
    form.expectChecked("squelch", false);
    form.expectEnabled("squelchLevel", false);
    form.click("autoAttenuation");
    form.expectEnabled("attenuation");
});

test("the lock protects the frequency", function(form) {
    form.click("tuningLock");
    form.expectEnabled("frequency", false);
    form.expectEmitted("tuningLock.toggled", [[true]]);
    form.expectParameter("tuningLock", "on");
});

test("the lock at the frequency is the same one", function(form) {
    form.evaluate("frequency.si_lockButtonToggled(true)");
    form.expectChecked("tuningLock");
    form.expectModified("tuningLock");
    form.expectEnabled("frequency", false);
    form.forget();
    form.evaluate("frequency.si_lockButtonToggled(true)");
    form.expectNotEmitted("tuningLock.toggled");
});

test("the resolution follows span and length", function(form) {
    var before = form.text("frequencyResolution");
    form.choose("span", "10 kHz");
    form.choose("fftLength", "4096");
    var after = form.text("frequencyResolution");
    if (before == after)
        fail("the resolution is still", after);
});

test("the audio source switches the volume", function(form) {
    form.choose("audioSource", "Digital");
    form.expectEnabled("volume");
    form.choose("audioSource", "Analog");
    form.expectEnabled("volume");
    form.choose("audioSource", "Off");
    form.expectEnabled("volume", false);
});

test("presets set what belongs together", function(form) {
    form.click("presetAirband");
    form.expectText("frequency", "121.5 MHz");
    form.expectText("demodulation", "AM");
    form.expectText("bandwidth", "8.000 kHz");
    form.expectText("tuningStep", "8.33 kHz");
    form.expectMarks(["frequency", "demodulation", "bandwidth", "tuningStep"]);
    form.click("presetShortwave");
    form.expectText("frequency", "6.07 MHz");
    form.click("presetBroadcast");
    form.expectText("frequency", "98.5 MHz");
});

test("a preset marks only what it changes", function(form) {
    form.click("presetBroadcast");
    form.expectMarks(["tuningStep"]);
});

test("the button for exclusions calls the application", function(form) {
    form.click("editExclusions");
    form.expectEmitted("editExclusions.clicked");
    expect(form.dialogs().length, 1, "dialogs");
});

test("what the device reports is shown and not sent back", function(form) {
    form.push("<Parameters><Tuner><Frequency>144000000</Frequency></Tuner></Parameters>");
    form.expectText("frequency", "144 MHz");
    form.expectFetched("");
    form.expectModified("frequency", false);
});

test("a collapsed group hides its rows", function(form) {
    form.collapse("scanGroup");
    form.expectVisible("scanRange", false);
    form.expectVisible("frequency");
    form.open("scanGroup");
    form.expectVisible("scanRange");
});
