<?xml version="1.0" encoding="windows-1252"?>
<gml:FeatureCollection>
<gml:featureMember>
<fme:Road gml:id="id1">
<fme:theme>Roads &amp; x:y</fme:theme>
<gml:Surface srsDimension="3">
<gml:posList>1 2 3 4 5 6 7 8 9</gml:posList>
<gml:pos>1 2</gml:pos>
</fme:Road>
</gml:featureMember>
</gml:FeatureCollection>
