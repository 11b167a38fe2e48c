-- SPDX-License-Identifier: GPL-3.0-or-later
-- One step of the comparison in Ardour's script console, with the listener of the format that LISTENER names:
--   create FOLDER TRACK...    saves a session with the tracks "Listener" and "Sender", which play the same recording
--   add FOLDER TRACK          puts a sender with nothing to send before all others
--   export FOLDER BLOCKSIZE [fresh]
--                             exports with `ToggleAB` on into FOLDER/b, which is the first that this process plays, saves,
--                             and exports with nothing on the sender's track into FOLDER/silence, and off into FOLDER/a;
--                             "fresh" first puts a new plug-in in the listener's place, which has to find the pod
local step, folder = arg[1], arg[2]
local name = folder:match ("[^/]+$")
local sampleRate, numSamples, tickRate = 48000, 6 * 48000, 282240000

local function writeRecording()
    local file, random = assert (io.open (folder .. "/interchange/" .. name .. "/audiofiles/recording.wav", "wb")), 1
    local size = numSamples * 8
    file:write (string.pack ("<c4I4c8I4I2I2I4I4I2I2c4I4", "RIFF", 36 + size, "WAVEfmt ", 16, 3, 2, sampleRate,
                             sampleRate * 8, 8, 32, "data", size))

    for n = 1, numSamples do
        random = (random * 1664525 + 1013904223) & 0xffffffff
        file:write (string.pack ("<ff", random / 2 ^ 33, math.sin (n * n / 1e6) / 3))   -- noise and a sweep
    end

    file:close()
end

local isVst2 = os.getenv ("LISTENER") == "VST2"

local function addPlugin (track, isListener)
    local vst2, vst3, senders = "1364809520", "69B6DB0CD585A94854524B504C4D5730", "ABCDEF019182FAEB4F727678426C5364"
    local id = isListener and (isVst2 and vst2 or vst3) or senders
    local type = isListener and isVst2 and ARDOUR.PluginType.LXVST or ARDOUR.PluginType.VST3
    local plugin = ARDOUR.LuaAPI.new_plugin (Session, id, type, "")
    assert (not plugin:isnil() and track:add_processor_by_index (plugin, 0, nil, true) == 0, "cannot add a plug-in")
end

local function addTrack (trackName, order)
    local isListener = trackName == "Listener"

    for track in Session:new_audio_track (2, 2, nil, 1, trackName, order, ARDOUR.TrackMode.Normal, true):iter() do
        addPlugin (track, isListener)
        track:panner_shell():set_bypassed (true)
        track:gain_control():set_value (isListener and 1 or 0, PBD.GroupControlDisposition.NoGroup)
    end
end

-- The console can import nothing: the recording comes into the saved session as text.
local function placeRecording()
    local path = folder .. "/" .. name .. ".ardour"
    local source = '<Source name="recording.wav" type="audio" flags="" id="90%d" channel="%d"/>'
    local region = ('<Region name="recording" type="audio" id="91%%d" start="a0" length="a%d@a0" channels="2" ' ..
                    'default-fade-in="0" default-fade-out="0" fade-in-active="0" fade-out-active="0" source-0="900" ' ..
                    'source-1="901" master-source-0="900" master-source-1="901"/>')
                       :format (numSamples * tickRate // sampleRate)
    local text = ARDOUR.LuaAPI.file_get_contents (path)
        :gsub ("<Sources/>", "<Sources>" .. source:format (0, 0) .. source:format (1, 1) .. "</Sources>")
        :gsub ('(<Playlist id="(%d+)"[^>]*)/>',
               function (head, id) return head .. ">" .. region:format (id) .. "</Playlist>" end)
    io.open (path, "w"):write (text):close()
end

local backend = AudioEngine:set_backend ("None (Dummy)", "", "")
backend:set_sample_rate (sampleRate)
backend:set_buffer_size (step == "export" and tonumber (arg[3]) or 1024)
assert (AudioEngine:start() == 0)

if step == "create" then
    create_session (folder, name, sampleRate)
    addTrack (arg[3], ARDOUR.PresentationInfo.max_order)
    addTrack (arg[4], ARDOUR.PresentationInfo.max_order)
    Session:save_state ("", false, false, false, false, false)
    writeRecording()
    placeRecording()
else
    assert (load_session (folder, name), "cannot load")
end

if step == "add" and Session:route_by_name (arg[3]):isnil() then
    addTrack (arg[3], 0)
    Session:save_state ("", false, false, false, false, false)
elseif step == "export" then
    local track, toggleParameter = Session:route_by_name ("Listener"), isVst2 and 3 or 1   -- its id; after the bypass

    if arg[4] == "fresh" then
        assert (track:remove_processor (track:nth_plugin (0), nil, true) == 0, "cannot remove the listener")
        addPlugin (track, true)
    end

    local plugin = track:nth_plugin (0)
    print ("ToggleAB was " .. (ARDOUR.LuaAPI.get_processor_param (plugin, toggleParameter, false)))

    local function export (toggle, out)
        ARDOUR.LuaAPI.set_processor_param (plugin, toggleParameter, toggle)
        local run = Session:simple_export()
        run:set_preset ("6d1c8c2e-9a3b-4d57-8f61-2b7c5e90a4d3")
        run:set_folder (folder .. "/" .. out)
        run:set_range (0, numSamples)
        assert ((run:run_export()), "cannot export")
    end

    export (1, "b")
    Session:save_state ("", false, false, false, false, false)
    Session:route_by_name ("Sender"):to_track():playlist():region_list():table()[1]:set_muted (true)
    export (1, "silence")
    export (0, "a")
end

close_session()
quit()
