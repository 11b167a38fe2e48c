-- SPDX-License-Identifier: GPL-3.0-or-later
-- One step of the comparison inside Ardour, run by its script console:
--   create FOLDER TRACK...                      a session with the named tracks, saved
--   export FOLDER BLOCKSIZE TOGGLE OUT [save]   the saved session, with the listener's `ToggleAB` at TOGGLE, in the folder OUT
-- The tracks "Listener" and "Sender" hold the same recording, any other one a sender of silence.
local step, folder = arg[1], arg[2]
local name = folder:match ("[^/]+$")
local sampleRate, numSamples = 48000, 6 * 48000
local listenerId, senderId = "69B6DB0CD585A94854524B504C4D5730", "ABCDEF019182FAEB4F727678426C5364"
local toggleParameter = 1   -- after the bypass

local function start (blockSize)
    local backend = AudioEngine:set_backend ("None (Dummy)", "", "")
    backend:set_sample_rate (sampleRate)
    backend:set_buffer_size (blockSize)
    assert (AudioEngine:start() == 0)
end

-- Noise on the left, a sweep with noise on the right, as 32-bit floats.
local function writeRecording (path)
    local file, random = assert (io.open (path, "wb")), 1
    local size = numSamples * 8
    file:write ("RIFF", string.pack ("<I4", 36 + size), "WAVEfmt ",
                string.pack ("<I4I2I2I4I4I2I2", 16, 3, 2, sampleRate, sampleRate * 8, 8, 32), "data",
                string.pack ("<I4", size))

    for n = 0, numSamples - 1 do
        random = (random * 1664525 + 1013904223) & 0xffffffff
        local noise, seconds = random / 2 ^ 31 - 1, n / sampleRate
        file:write (string.pack ("<ff", noise / 4, noise / 64 + 0.5 * math.sin (200 * seconds * (1 + 20 * seconds))))
    end

    file:close()
end

local function addTrack (trackName)
    local isListener = trackName == "Listener"
    local tracks = Session:new_audio_track (2, 2, nil, 1, trackName, ARDOUR.PresentationInfo.max_order,
                                            ARDOUR.TrackMode.Normal, true)

    for track in tracks:iter() do
        local plugin = ARDOUR.LuaAPI.new_plugin (Session, isListener and listenerId or senderId,
                                                 ARDOUR.PluginType.VST3, "")
        assert (not plugin:isnil() and track:add_processor_by_index (plugin, 0, nil, true) == 0, trackName)
        track:panner_shell():set_bypassed (true)

        if not isListener then
            track:gain_control():set_value (0, PBD.GroupControlDisposition.NoGroup)
        end
    end
end

-- The console can import nothing, so the recording goes into the saved session as text.
local function placeRecording()
    local superClocks = numSamples * (508032000 // sampleRate)
    local span = ('start="a0" length="a%d@a0"'):format (superClocks)
    local sources, path = "", folder .. "/" .. name .. ".ardour"

    for channel = 0, 1 do
        sources = sources .. ('<Source name="recording.wav" type="audio" flags="" id="90%d" channel="%d"/>'):format (channel, channel)
    end

    local text = ARDOUR.LuaAPI.file_get_contents (path)
    text = text:gsub ("<Sources/>", "<Sources>" .. sources .. "</Sources>")

    for id, track in ipairs { "Listener", "Sender" } do
        local region = ('><Region name="recording" type="audio" id="91%d" %s channels="2" whole-file="0" opaque="1" ' ..
                        'scale-amplitude="1" default-fade-in="0" default-fade-out="0" fade-in-active="0" ' ..
                        'fade-out-active="0" source-0="900" source-1="901" master-source-0="900" ' ..
                        'master-source-1="901"/></Playlist>'):format (id, span)
        text = text:gsub ('(<Playlist id="%d+" name="' .. track .. '"[^>]*)/>', "%1" .. region)
    end

    local file = assert (io.open (path, "w"))
    file:write (text)
    file:close()
end

if step == "create" then
    start (1024)
    create_session (folder, name, sampleRate)

    for index = 3, #arg do
        addTrack (arg[index])
    end

    Session:save_state ("", false, false, false, false, false)
    close_session()
    writeRecording (folder .. "/interchange/" .. name .. "/audiofiles/recording.wav")
    placeRecording()
else
    local toggle, out = tonumber (arg[4]), arg[5]
    start (tonumber (arg[3]))
    assert (load_session (folder, name))
    local plugin = Session:route_by_name ("Listener"):nth_plugin (0)
    print (out, "found ToggleAB", ARDOUR.LuaAPI.get_processor_param (plugin, toggleParameter, false))
    ARDOUR.LuaAPI.set_processor_param (plugin, toggleParameter, toggle)
    local export = Session:simple_export()
    export:set_preset ("6d1c8c2e-9a3b-4d57-8f61-2b7c5e90a4d3")
    export:set_folder (folder .. "/" .. out)
    export:set_range (0, numSamples + 48000)
    assert (export:run_export())
    if arg[6] then Session:save_state ("", false, false, false, false, false) end
    close_session()
end

quit()
