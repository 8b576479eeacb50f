<?xml version="1.0" encoding = 'ISO-8859-15'?><?p q?><!-- c -->
<c xmlns="urn:c" xmlns:g="http://www.opengis.net/gml/3.2"><g:featureMember><F fid='a&amp;&#98;'><n>&lt;<![CDATA[<&]]]]>]&#xE9;</n><none:k xlink:href="&quot;"/>
<gml:LineString srsDimension="3"><gml:posList>1 2 3
-4.5 +6e1 7</gml:posList></gml:LineString></F></g:featureMember></c><!-- c -->
